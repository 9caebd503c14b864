#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Reads the running program over AT-SPI, as a screen reader does: goes through its pages by pressing their buttons, and
lists the controls that have no name. It connects to the simulated instrument before, since some pages need one.
Usage: names.py APPLICATION PAGE...

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


def children(control):
    if control.getRole() in (pyatspi.ROLE_TABLE, pyatspi.ROLE_LIST, pyatspi.ROLE_COMBO_BOX):
        return []
    return [child for child in control if child is not None]


def buttons(where, name):
    """The buttons of that name that are shown and enabled, in the order of the tree."""
    if not showing(where):
        return []
    if where.getRole() in BUTTON_ROLES and where.name == name:
        return [where] if where.getState().contains(pyatspi.STATE_SENSITIVE) else []
    return [found for child in children(where) for found in buttons(child, name)]


def press(control):
    actions = control.queryAction()
    for number in range(actions.nActions):
        if actions.getName(number).lower() in ("press", "click", "toggle"):
            actions.doAction(number)
            return
    give_up(f"{control.name} can't be pressed")


def has_name(control):
    """The name of a combo box is its selected text, so that its label or its description has to say what it is for."""
    if control.getRole() != pyatspi.ROLE_COMBO_BOX:
        return bool(control.name.strip())
    labels = [one for one in control.getRelationSet() if one.getRelationType() == pyatspi.RELATION_LABELLED_BY]
    return bool(labels or control.description.strip())


def walk(control, containers, counts, unnamed):
    """Adds the unnamed controls that are shown to `unnamed`."""
    if not showing(control):
        return
    role = control.getRole()
    is_read = role in READ_ROLES or control.getState().contains(pyatspi.STATE_FOCUSABLE)
    if is_read and role not in CONTENT_ROLES:
        counts[0] += 1
        if not has_name(control):
            unnamed.append(f"{control.getRoleName()} in {' > '.join(containers)}")
    inside = containers + [control.name] if control.name else containers
    for child in children(control):
        walk(child, inside, counts, unnamed)


def connect(program):
    """The page and the button on it have the same name."""
    press(wait_for("the page Connect", lambda: buttons(program[0], "Connect"))[0])
    press(wait_for("the button Connect", lambda: (buttons(program[0], "Connect") + [None, None])[1]))
    wait_for("the connection", lambda: program[0].name.endswith("[Connected]"))


def check(program, page):
    """Goes to the page. The controls on it, and those of them that have no name."""
    press(wait_for(f"the button {page}", lambda: buttons(program[0], page))[0])
    counts, unnamed = [0], []
    walk(program[0], [], counts, unnamed)
    if counts[0] < 15:  # the row of page buttons has eight
        give_up(f"the page {page} has hardly a control")
    print(f"{page}: {counts[0]} controls, {len(unnamed)} without a name")
    return [f"{page}: {line}" for line in unnamed]


def main():
    name, pages = sys.argv[1], sys.argv[2:]
    program = wait_for(f"the program {name}", lambda: application(name))
    connect(program)
    unnamed = [line for page in pages for line in check(program, page)]
    for line in unnamed:
        print(f"without a name: {line}")
    sys.exit(1 if unnamed else 0)


main()
