#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the running program over AT-SPI, as a screen reader does: goes through its pages by pressing their buttons, and
lists the controls that have no name. It begins with the page Connect, and connects to the
simulated instrument, since some pages need one. Usage: names.py APPLICATION PAGE...

Ends with 1 where it finds one, and with 2 where the program or a page can't be found in time."""
import sys
import time

import pyatspi

LIMIT = 20  # seconds for whatever is waited for
READ_ROLES = {
    pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON,
    pyatspi.ROLE_COMBO_BOX, pyatspi.ROLE_TEXT, pyatspi.ROLE_ENTRY, pyatspi.ROLE_LIST, pyatspi.ROLE_TABLE,
    pyatspi.ROLE_SLIDER, pyatspi.ROLE_SPIN_BUTTON, pyatspi.ROLE_PROGRESS_BAR, pyatspi.ROLE_IMAGE, pyatspi.ROLE_CHART,
}
# What they contain is their text, and a table may have a million of them.
CONTENT_ROLES = {
    pyatspi.ROLE_LIST_ITEM, pyatspi.ROLE_TABLE_CELL, pyatspi.ROLE_COLUMN_HEADER, pyatspi.ROLE_ROW_HEADER,
    pyatspi.ROLE_TABLE_COLUMN_HEADER, pyatspi.ROLE_TABLE_ROW_HEADER, pyatspi.ROLE_LABEL,
}


OWN_PAGES = ("Connect", "Control")  # of the instrument control, which has no caption
FEWEST = 12  # controls; the row of page buttons has eight
BUTTON_ROLES = {pyatspi.ROLE_PUSH_BUTTON, pyatspi.ROLE_TOGGLE_BUTTON, pyatspi.ROLE_CHECK_BOX, pyatspi.ROLE_RADIO_BUTTON}


def give_up(text):
    print(text, file=sys.stderr)
    sys.exit(2)


def wait_for(what, find):
    """What `find` returns as soon as it is something; the program may still be starting or drawing."""
    end = time.monotonic() + LIMIT
    while time.monotonic() < end:
        try:
            found = find()
        except Exception:  # it went away while it was read
            found = None
        if found:
            return found
        time.sleep(0.05)
    give_up(f"not there within {LIMIT} s: {what}")


def application(name):
    for one in pyatspi.Registry.getDesktop(0):
        if one is not None and one.name == name and one.childCount > 0:
            return one
    return None


def showing(control):
    return control.getState().contains(pyatspi.STATE_SHOWING)


def children(control, role):
    if role in (pyatspi.ROLE_TABLE, pyatspi.ROLE_LIST, pyatspi.ROLE_COMBO_BOX):
        return []
    return [child for child in control if child is not None]


def is_button(control, name):
    """Whether it is a button of that name that can be pressed. Each question is a call to the program."""
    if control.name != name or control.getRole() not in BUTTON_ROLES:
        return False
    state = control.getState()
    return state.contains(pyatspi.STATE_SENSITIVE) and state.contains(pyatspi.STATE_SHOWING)


def page_button(program, name):
    return next((child for child in program[0] if is_button(child, name)), None)


def button_below(control, name):
    """The button of that name somewhere below what is shown."""
    for child in control:
        if child is None or not showing(child):
            continue
        found = child if is_button(child, name) else button_below(child, name)
        if found:
            return found
    return None


def button_on_page(program, name):
    found = (button_below(page, name) for page in program[0] if showing(page))
    return next((button for button in found if button), None)


def press(control):
    actions = control.queryAction()
    for number in range(actions.nActions):
        if actions.getName(number).lower() in ("press", "click", "toggle"):
            actions.doAction(number)
            return
    give_up(f"{control.name} can't be pressed")


def has_name(control, role):
    """The name of a combo box is its selected text, so that its label or its description has to say what it is for."""
    if role != pyatspi.ROLE_COMBO_BOX:
        return bool(control.name.strip())
    labels = [one for one in control.getRelationSet() if one.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    return bool(labels or control.description.strip())


def walk(control, containers, counts, unnamed):
    """Adds the unnamed controls that are shown to `unnamed`."""
    state = control.getState()
    if not state.contains(pyatspi.STATE_SHOWING):
        return
    role = control.getRole()
    if (role in READ_ROLES or state.contains(pyatspi.STATE_FOCUSABLE)) and role not in CONTENT_ROLES:
        counts[0] += 1
        if not has_name(control, role):
            unnamed.append(f"{control.getRoleName()} in {' > '.join(containers)}")
    for child in children(control, role):
        walk(child, containers + [control.name], counts, unnamed)


def page_shown(program, page):
    """The frame of a page has the name of its button. The pages of the instrument control have none."""
    return page in OWN_PAGES or any(child.name == page and child.getRole() not in BUTTON_ROLES and showing(child)
                                    for child in program[0])


def content(program, page):
    """The number of controls in the window and those without a name, once the page is shown."""
    if not page_shown(program, page):
        return None
    counts, unnamed = [0], []
    walk(program[0], [], counts, unnamed)
    return (counts[0], unnamed) if counts[0] >= FEWEST else None


def check(program, page):
    """Goes to the page. The controls on it that have no name."""
    press(wait_for(f"the button {page}", lambda: page_button(program, page)))
    count, unnamed = wait_for(f"the page {page}", lambda: content(program, page))
    print(f"{page}: {count} controls, {len(unnamed)} without a name")
    return [f"{page}: {line}" for line in unnamed]


def connect(program):
    press(wait_for("the button Connect on its page", lambda: button_on_page(program, "Connect")))
    wait_for("the connection", lambda: program[0].name.endswith("[Connected]"))


def main():
    name, pages = sys.argv[1], sys.argv[2:]
    program = wait_for(f"the program {name}", lambda: application(name))
    unnamed = check(program, "Connect")  # before the link: the page asks a question afterwards
    connect(program)
    for page in pages:
        unnamed += check(program, page)
    for line in unnamed:
        print(f"without a name: {line}")
    sys.exit(1 if unnamed else 0)


main()
