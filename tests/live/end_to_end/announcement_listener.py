#!/usr/bin/python3
"""Prints each announcement of the program that is shown on the accessibility bus, as assistive technology sees it."""
import pyatspi


def shown(event):
    if event.detail1 and event.host_application.name == "Rondora":
        announcement = event.source
        print(announcement.parent.getRoleName(), announcement.getRoleName(), announcement[0].name, sep="|", flush=True)


pyatspi.Registry.registerEventListener(shown, "object:state-changed:showing")
pyatspi.Registry.start()
