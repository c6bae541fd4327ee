#!/usr/bin/python3
"""Reads and operates the program's windows through the accessibility bus, as assistive technology does.

Obeys each line of the named pipe that is its argument with a line "answer JSON":
  controls           role, name, description, text and states of all that is shown; the place in this list is its number
  focus N, press N   operates that control of the last list
"""
import json
import sys

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

STATES = ("FOCUSED", "ENABLED", "FOCUSABLE", "CHECKED", "SELECTED")
shown = []


def text_of(control):
    """Of an entry, else the name."""
    text = control.get_text_iface() if control.get_role() in (Atspi.Role.TEXT, Atspi.Role.SPIN_BUTTON) else None
    return Atspi.Text.get_text(text, 0, Atspi.Text.get_character_count(text)) if text else control.get_name()


def name_of(control):
    """The toolkit gives a combo box its value as name; the user hears the label."""
    if control.get_role() != Atspi.Role.COMBO_BOX:
        return control.get_name()
    labels = [r for r in control.get_relation_set() if r.get_relation_type() == Atspi.RelationType.LABELLED_BY]
    return labels[0].get_target(0).get_name() if labels else ""


def visit(control, found):
    states = control.get_state_set()
    if not states.contains(Atspi.StateType.SHOWING):
        return
    shown.append(control)
    found.append({"role": control.get_role_name(), "name": name_of(control),
                  "description": control.get_description(), "text": text_of(control),
                  "states": [s for s in STATES if states.contains(getattr(Atspi.StateType, s))]})
    for i in range(control.get_child_count()):
        child = control.get_child_at_index(i)
        if child:
            visit(child, found)


def controls():
    shown.clear()
    found = []
    for i in range(desktop.get_child_count()):
        program = desktop.get_child_at_index(i)
        if program and program.get_name() == "Rondora":
            for j in range(program.get_child_count()):
                visit(program.get_child_at_index(j), found)
    return found


def obey(verb, number=0):
    if verb == "controls":
        return controls()
    control = shown[int(number)]
    if verb == "focus":
        return control.get_component_iface().grab_focus()
    return control.get_action_iface().do_action(0)


desktop = Atspi.get_desktop(0)
desktop.set_cache_mask(Atspi.Cache.NONE)
for line in open(sys.argv[1]):
    try:
        answer = obey(*line.split())
    except GLib.Error as error:  # the control is gone
        answer = str(error)
    print("answer", json.dumps(answer), flush=True)
