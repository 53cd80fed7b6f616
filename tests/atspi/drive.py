#!/usr/bin/python3
"""The program driven through the accessibility bus alone, as a screen-reader
user would: no mouse, no keys. Writes a self-signed certificate (the name
written into its box, the file named in the save dialog) and checks it with
the openssl command; then opens the checksum page, ticks MD5, picks the file
and reads the size and the checksum back as the page exposes them; then
closes the window.
Usage: drive.py FILE"""
import hashlib
import os
import stat
import subprocess
import sys
import time

import pyatspi

FILE = sys.argv[1]


def fail(message):
    print("FAIL:", message)
    sys.exit(1)


def walk(node):
    yield node
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield from walk(child)


def find(root, role, name=None, timeout=20):
    """The first showing node of that role (and exact name, if given)."""
    deadline = time.time() + timeout
    while time.time() < deadline:
        for node in walk(root):
            try:
                if node.getRoleName() == role and (name is None or node.name == name) and \
                        node.getState().contains(pyatspi.STATE_SHOWING):
                    return node
            except Exception:
                continue
        time.sleep(0.2)
    fail(f"no {role} {name!r}")


def act(node, action):
    actions = node.queryAction()
    for i in range(actions.nActions):
        if actions.getName(i).lower() == action:
            actions.doAction(i)
            return
    fail(f"{node.name!r} has no action {action}")


def application():
    deadline = time.time() + 30
    while time.time() < deadline:
        desktop = pyatspi.Registry.getDesktop(0)
        for i in range(desktop.childCount):
            app = desktop.getChildAtIndex(i)
            if app is not None and app.name == "zorvane":
                return app
        time.sleep(0.3)
    fail("the program is not on the accessibility bus")


def name_file_in_dialog(path, button_names):
    dialog = find(app, "dialog")
    name_box = None
    for node in walk(dialog):
        if node.getRoleName() == "text" and "name" in (node.name or "").lower():
            name_box = node
    if name_box is None:
        fail("no file name box in the dialog")
    name_box.queryEditableText().setTextContents(path)
    buttons = [n for n in walk(dialog) if n.getRoleName() == "push button" and n.name in button_names]
    if not buttons:
        fail(f"no {button_names} button in the dialog")
    act(buttons[0], "press")


app = application()

# A self-signed certificate, the name written into its box.
act(find(app, "page tab", "Self-Signed Certificate"), "press")
find(app, "text", "Common Name").queryEditableText().setTextContents("e2e.example")
generate = find(app, "push button", "Generate the certificate and key as PEM files")
act(generate, "setfocus")  # leaving the box hands the name on, as Tab does
act(generate, "press")
stem = os.path.join(os.path.dirname(FILE), "e2e")
name_file_in_dialog(stem, ("Save", "&Save"))
deadline = time.time() + 60
while time.time() < deadline and not (os.path.exists(stem + ".key") and os.path.getsize(stem + ".key") > 0):
    time.sleep(0.2)
subject = subprocess.run(["openssl", "x509", "-in", stem + ".crt", "-noout", "-subject"],
                         capture_output=True, text=True).stdout
if "CN = e2e.example" not in subject:
    fail(f"certificate subject {subject!r}")
if stat.S_IMODE(os.stat(stem + ".key").st_mode) != 0o600:
    fail("the key is not owner-only")
print("certificate:", subject.strip())

act(find(app, "page tab", "File Checksums"), "press")
act(find(app, "check box", "MD5"), "toggle")
act(find(app, "push button", "Choose the file to check"), "press")

name_file_in_dialog(FILE, ("Open", "&Open"))

with open(FILE, "rb") as data:
    content = data.read()
md5 = hashlib.md5(content).hexdigest().upper()
# The values read out as their text, what they are as the description.
checksum = find(app, "label", md5, timeout=60)
if checksum.description != "MD5 checksum":
    fail(f"checksum described as {checksum.description!r}")
size = find(app, "label", str(len(content)))
if size.description != "Size in bytes":
    fail(f"size described as {size.description!r}")
print("read out:", checksum.name, checksum.description, size.name)

act(find(app, "push button", "Close"), "press")
print("OK")
