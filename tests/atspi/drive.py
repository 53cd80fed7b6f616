#!/usr/bin/python3
"""The program driven through the accessibility bus alone, as a screen-reader
user would, with no mouse; the files are named in the toolkit's own dialog or,
with "portal", in the real desktop portal's GTK chooser. What it checks is in
docs/testing.md. Usage: drive.py APP-NAME FOLDER [portal]"""
import datetime
import hashlib
import os
import re
import stat
import subprocess
import sys
import time

import pyatspi


NAME, FOLDER = sys.argv[1:3]
PORTAL = sys.argv[3:] == ["portal"]
SHOWING, ENABLED, FOCUSED = pyatspi.STATE_SHOWING, pyatspi.STATE_ENABLED, pyatspi.STATE_FOCUSED
# Names printed in one fixed form: OpenSSL 3.5 changed the default spacing.
NAMES = ("-nameopt", "oneline")


def fail(message):
    print("FAIL:", message)
    sys.exit(1)


def wait(probe, failure, timeout=20):
    """The probe's first true answer."""
    deadline = time.time() + timeout
    while time.time() < deadline:
        if answer := probe():
            return answer
        time.sleep(0.2)
    fail(failure)


def has(node, state):
    try:
        return node.getState().contains(state)
    except Exception:  # a window that went while we looked
        return False


def first(node, test):
    """The first showing node of the tree that passes the test."""
    try:
        if has(node, SHOWING) and test(node):
            return node
    except Exception:
        pass
    try:
        children = [node.getChildAtIndex(i) for i in range(node.childCount)]
    except Exception:
        return None
    return next((found for child in children if child and (found := first(child, test))), None)


def find(root, test, what, timeout=20):
    return wait(lambda: first(root, test), f"no {what}", timeout)


def named(role, name=None):
    """Roles by AT-SPI's numbers: their printed names change between releases
    ("push button" became "button")."""
    return lambda node: node.getRole() == role and name in (None, node.name)


def control(root, role, name=None, timeout=20):
    return find(root, named(role, name), f"{role} {name!r}", timeout)


def application(name):
    desktop = pyatspi.Registry.getDesktop
    return wait(lambda: next((a for a in desktop(0) if a and a.name == name), None),
                f"{name} is not on the accessibility bus", 30)


def act(node, action):
    actions = node.queryAction()
    for i in range(actions.nActions):
        if actions.getName(i).lower() == action:
            return actions.doAction(i)
    fail(f"{node.name!r} has no action {action}")


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True).stdout


def openssl(*arguments):
    return run("openssl", *arguments)


def press(role, name, action="press"):
    """A control of the program's, once its window takes input again."""
    act(find(app, lambda n: named(role, name)(n) and has(n, ENABLED), name), action)


def write(role, name, text):
    """Into the box as a user writes: the focus first, which the next box takes
    away, and the box hands its text on as it loses it."""
    box = control(app, role, name)
    act(box, "setfocus")
    box.queryEditableText().setTextContents(text)


def chooser(title):
    """The GTK chooser, modal over our window, which takes no input meanwhile."""
    dialog = find(application("xdg-desktop-portal-gtk"), named(pyatspi.ROLE_FILE_CHOOSER, title), f"{title} chooser")
    if has(control(app, pyatspi.ROLE_PUSH_BUTTON, "Close"), ENABLED):
        fail("the window takes input under the chooser")
    tree = run("xwininfo", "-root", "-tree")
    window = re.search(rf'(0x[0-9a-f]+) "{title}": \("xdg-desktop-portal-gtk"', tree)
    wm = run("xprop", "-id", window[1], "WM_TRANSIENT_FOR", "_NET_WM_STATE")
    owner = re.search(r"window id # (0x[0-9a-f]+)", wm)
    if not owner or not re.search(rf'{owner[1]} "[^"]*": \("{re.escape(NAME)}"', tree) or \
            "_NET_WM_STATE_MODAL" not in wm:
        fail(f"chooser not modal over the program's window: {wm!r}")
    return dialog


def answer(dialog, box, path):
    """Writes the name whole (typed keys would take GTK's inline completion of
    the extension) and confirms it from the keyboard, as a person does."""
    box.queryEditableText().setTextContents(path)
    time.sleep(0.5)  # GTK drops a Return that comes within ~0.1 s of the edit
    pyatspi.Registry.generateKeyboardEvent(0xFF0D, None, pyatspi.KEY_SYM)
    wait(lambda: not has(dialog, SHOWING), f"the chooser kept {path}")


def name_file(saving, path):
    if not PORTAL:
        dialog = control(app, pyatspi.ROLE_DIALOG)
        box = find(dialog, lambda n: n.getRole() == pyatspi.ROLE_TEXT and "name" in (n.name or "").lower(), "name box")
        box.queryEditableText().setTextContents(path)
        labels = ("Save", "&Save") if saving else ("Open", "&Open")
        return act(find(dialog, lambda n: n.getRole() == pyatspi.ROLE_PUSH_BUTTON and n.name in labels, "button"), "press")
    if saving:
        dialog = chooser("Save As")
        return answer(dialog, find(dialog, lambda n: n.getRole() == pyatspi.ROLE_TEXT and any(
            r.getRelationType() == pyatspi.RELATION_LABELLED_BY and r.getTarget(0).name == "Name:"
            for r in n.getRelationSet()), "Name box"), path)
    dialog = chooser("Open")
    # "/" opens GTK's location box, which has neither name nor label.
    pyatspi.Registry.generateKeyboardEvent(0, "/", pyatspi.KEY_STRING)
    answer(dialog, find(dialog, lambda n: n.getRole() == pyatspi.ROLE_TEXT and has(n, FOCUSED), "location box"), path)


def save(button, stem, written):
    """Presses the button with the focus wherever it was, names the file, and
    waits until the last file is whole; a secret must be owner-only."""
    press(pyatspi.ROLE_PUSH_BUTTON, button)
    name_file(True, os.path.join(FOLDER, stem))
    path = os.path.join(FOLDER, written)
    wait(lambda: os.path.exists(path) and os.path.getsize(path) > 0, f"{path} not written", 90)
    time.sleep(0.5)
    if stat.S_IMODE(os.stat(path).st_mode) & 0o077:
        fail(f"{written} is not owner-only")
    return path


app = application(NAME)

press(pyatspi.ROLE_PAGE_TAB, "Self-Signed Certificate")
# A server certificate for this machine, so that other TLS stacks can be handed it (scripts/interop).
write(pyatspi.ROLE_TEXT, "Common Name", "localhost")
write(pyatspi.ROLE_PASSWORD_TEXT, "Pass phrase", "pem-secret")
# The validity as an assistive tool writes it, with no key pressed.
control(app, pyatspi.ROLE_SPIN_BUTTON, "Valid for, in days").queryEditableText().setTextContents("1.9")
key = save("Generate the certificate and key as PEM files", "a", "a.key")
crt = os.path.join(FOLDER, "a.crt")
subject = openssl("x509", "-in", crt, "-noout", "-subject", "-dates", *NAMES)
start, end = (datetime.datetime.strptime(line.split("=", 1)[1], "%b %d %H:%M:%S %Y %Z")
              for line in subject.splitlines()[1:])
if "CN = localhost" not in subject or end - start != datetime.timedelta(days=1) or \
        not openssl("pkey", "-in", key, "-passin", "pass:wrong", "-noout").strip():  # encrypted
    fail(f"PEM files: {subject!r}")

# Toggle, the first action, as screen readers activate it: from Qt 6.8 on, a
# radio button's press reaches the button's own press, which leaves it unchecked.
press(pyatspi.ROLE_RADIO_BUTTON, "Use the certificate for digital signing", "toggle")
write(pyatspi.ROLE_PASSWORD_TEXT, "Pass phrase", "bundle-secret")
save("Generate the certificate and key as one PKCS#12 bundle", "b", "b.pfx")

if PORTAL:  # the bare name again: GTK was asked about "a" only, so the program asks
    before = {path: open(path, "rb").read() for path in (crt, key)}
    press(pyatspi.ROLE_PUSH_BUTTON, "Generate the certificate and key as PEM files")
    name_file(True, os.path.join(FOLDER, "a"))
    question = find(app, lambda n: n.getRole() in (pyatspi.ROLE_ALERT, pyatspi.ROLE_DIALOG) and n.name == "Save As", "question")
    find(question, named(pyatspi.ROLE_LABEL, "a.crt already exists.\nDo you want to replace it?"), "question's text")
    press(pyatspi.ROLE_PUSH_BUTTON, "No")
    time.sleep(1)
    if any(open(path, "rb").read() != content for path, content in before.items()):
        fail("a No replaced the PEM files")

press(pyatspi.ROLE_PAGE_TAB, "Certificate Signing Request")
write(pyatspi.ROLE_TEXT, "Common Name", "req.example")
write(pyatspi.ROLE_TEXT, "Organization", "E2E Ltd")
write(pyatspi.ROLE_PASSWORD_TEXT, "Pass phrase", "request-secret")
act(control(app, pyatspi.ROLE_TEXT, "Country code"), "setfocus")
time.sleep(0.3)
pyatspi.Registry.generateKeyboardEvent(0, "NZ", pyatspi.KEY_STRING)  # last: the press hands it on
time.sleep(0.5)
save("Generate the request and its key", "r", "r.key")
subject = openssl("req", "-in", os.path.join(FOLDER, "r.csr"), "-noout", "-subject", *NAMES, "-verify")
if "CN = req.example, O = E2E Ltd, C = NZ" not in subject or "verify OK" not in subject:
    fail(f"request: {subject!r}")

press(pyatspi.ROLE_PAGE_TAB, "File Checksums")
press(pyatspi.ROLE_CHECK_BOX, "MD5", "toggle")
press(pyatspi.ROLE_PUSH_BUTTON, "Choose the file to check")
data = os.path.join(FOLDER, "data.bin")
if PORTAL:
    name_file(False, data[:-2] + "ni")  # a slip of the keys: GTK hands on a file that does not exist
name_file(False, data)  # so the chooser is back
with open(data, "rb") as content:
    md5, size = hashlib.md5(content.read()).hexdigest().upper(), os.path.getsize(data)
checksum = control(app, pyatspi.ROLE_LABEL, md5, timeout=60)
size = control(app, pyatspi.ROLE_LABEL, str(size))
if (checksum.description, size.description) != ("MD5 checksum", "Size in bytes"):
    fail(f"described as {checksum.description!r}, {size.description!r}")

press(pyatspi.ROLE_PUSH_BUTTON, "Close")
print("OK")
