"""Listens on the accessibility bus as a screen reader does, presses keys in the goods list, and holds what is told of
the keyboard's place against the cells of the table. Starts the program that its arguments name, once it listens. Called by
check_screen_reader.sh."""

import subprocess
import sys
import threading
import time

import pyatspi
from gi.repository import GLib

PATIENCE = 60  # seconds; the demo company is made first
LIST = "فهرست کالاها"

heard = []  # role and name of what got the keyboard, in order


def note(event):
    if event.detail1:
        heard.append((event.source.getRoleName(), event.source.name))


def wait_until(condition, what, keys=(), again=PATIENCE):
    """Presses the keys, and once more every so many seconds, until the condition holds."""
    begun = time.monotonic()
    pressed = None
    while time.monotonic() - begun < PATIENCE:
        if pressed is None or time.monotonic() - pressed > again:
            for key in keys:
                subprocess.run(["xdotool", "key", "--clearmodifiers", key], check=True)
            pressed = time.monotonic()
        time.sleep(0.1)
        found = condition()
        if found:
            return found
    raise AssertionError(f"{what}; heard: {heard[-6:]}")


def find(item, role, name):
    if item is None:
        return None
    if item.getRoleName() == role and item.name == name:
        return item
    if item.getRoleName() == "table":
        return None
    for i in range(item.childCount):
        found = find(item.getChildAtIndex(i), role, name)
        if found:
            return found
    return None


def program():
    desktop = pyatspi.Registry.getDesktop(0)
    for i in range(desktop.childCount):
        application = desktop.getChildAtIndex(i)
        if application and application.name == "goods-desktop" and application.childCount:
            return application
    return None


def listen():
    application = wait_until(program, "the program is not on the bus")
    wait_until(lambda: ("table", LIST) in heard, "the list did not open", ["ctrl+1"], again=10)
    window = wait_until(lambda: find(application, "table", LIST), "no table") and application.getChildAtIndex(1)
    assert window.getRoleName() == "frame", window.getRoleName()
    cells = find(application, "table", LIST).queryTable()
    assert cells.nRows > 100, cells.nRows

    def cell(row, column):
        return ("table cell", cells.getAccessibleAt(row, column).name)

    def expect(keys, row, column):
        wanted = cell(row, column)
        heard.clear()
        wait_until(lambda: heard and heard[-1] == wanted, f"after {keys} not {wanted}", keys)

    expect(["ctrl+End", "ctrl+Home"], 0, 0)
    assert cell(0, 0) != cell(1, 0)
    expect(["Down"], 1, 0)
    expect(["Down"], 2, 0)
    expect(["Up"], 1, 0)
    assert cells.getColumnDescription(2)
    expect(["ctrl+Left", "ctrl+Left"], 1, 1)
    # Away and back: behind the table the cell in it.
    expect(["Tab", "shift+Tab"], 1, 1)
    assert ("table", LIST) in heard


def run():
    started = subprocess.Popen(sys.argv[1:], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        listen()
        print("heard:", len(heard), "places, the last:", heard[-1][1])
        run.passed = True
    except Exception as problem:  # whatever it is, the listening ends
        print("failed:", problem)
    started.kill()
    GLib.idle_add(pyatspi.Registry.stop)


run.passed = False
pyatspi.Registry.registerEventListener(note, "object:state-changed:focused")
threading.Thread(target=run, daemon=True).start()
pyatspi.Registry.start()
sys.exit(0 if run.passed else 1)
