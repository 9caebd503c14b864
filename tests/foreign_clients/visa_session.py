#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""Talks to an instrument with PyVISA and its backend in Python, one step an argument, and prints what each step brings.

    visa_session.py RESOURCE STEP...

    write MESSAGE        sends it; prints nothing
    query QUERY          prints the answer
    values QUERY         prints the numbers of a list, one a line; the list may close with a comma
    unanswered QUERY     prints "timeout" where no answer comes within a short time
    fetch FILE QUERY     writes the block that the query is answered with to the file, and prints its length
    send FILE MESSAGE    sends the message and the content of the file as a block; prints nothing
"""

import sys

import pyvisa

GENEROUS_MS = 30_000
SHORT_MS = 300


def fields(answer):
    return answer.rstrip(",").split(",")


def unanswered(instrument, query):
    instrument.timeout = SHORT_MS
    try:
        return instrument.query(query)
    except pyvisa.errors.VisaIOError as error:
        return "timeout" if error.error_code == pyvisa.constants.StatusCode.error_timeout else str(error)
    finally:
        instrument.timeout = GENEROUS_MS


def fetch(instrument, text):
    path, query = text.split(" ", 1)
    data = instrument.query_binary_values(query, datatype="B", container=bytes)
    with open(path, "wb") as file:
        file.write(data)
    return len(data)


def send(instrument, text):
    path, message = text.split(" ", 1)
    with open(path, "rb") as file:
        instrument.write_binary_values(message, file.read(), datatype="B")


def perform(instrument, verb, text):
    if verb == "write":
        instrument.write(text)
    elif verb == "query":
        print(instrument.query(text))
    elif verb == "values":
        print(*instrument.query_ascii_values(text, separator=fields), sep="\n")
    elif verb == "unanswered":
        print(unanswered(instrument, text))
    elif verb == "fetch":
        print(fetch(instrument, text))
    elif verb == "send":
        send(instrument, text)
    else:
        sys.exit(f"no such step: {verb}")


def main():
    resources = pyvisa.ResourceManager("@py")
    instrument = resources.open_resource(sys.argv[1], read_termination="\n", write_termination="\n",
                                         timeout=GENEROUS_MS)
    for step in sys.argv[2:]:
        perform(instrument, *step.split(" ", 1))
    instrument.close()


main()
