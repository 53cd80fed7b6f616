#!/usr/bin/python3
"""The program with the real desktop portal and its GTK chooser, driven through
the accessibility bus alone as a screen-reader user would. Saves each page's
files and opens one for its checksum, naming them in the GTK chooser; a name
without its extension onto files there already brings the program's own
question, whose "No" leaves them alone; a name that does not exist in the open
chooser brings the chooser back. Usage: drive.py APP-NAME FOLDER"""
import hashlib
import os
import re
import subprocess
import sys
import time

import pyatspi

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "support"))
from accessibility import act, application, control, fail, find, has, named, openssl, wait  # noqa: E402

NAME, FOLDER = sys.argv[1:3]
SHOWING, ENABLED, FOCUSED = pyatspi.STATE_SHOWING, pyatspi.STATE_ENABLED, pyatspi.STATE_FOCUSED


def press(role, name, action="press"):
    """A control of the program's, once its window takes input again."""
    act(find(app, lambda n: named(role, name)(n) and has(n, ENABLED), name), action)


def run(*command):
    return subprocess.run(command, stdout=subprocess.PIPE, text=True).stdout


def chooser(title):
    dialog = find(application("xdg-desktop-portal-gtk"), named("file chooser", title), f"{title} chooser")
    if has(control(app, "push button", "Close"), ENABLED):
        fail("the window takes input under the chooser")
    return dialog


def answer(dialog, box, path):
    """Writes the name whole (typed keys would take GTK's inline completion of
    the extension) and confirms it from the keyboard, as a person does."""
    box.queryEditableText().setTextContents(path)
    time.sleep(0.5)  # GTK drops a Return that comes within ~0.1 s of the edit
    pyatspi.Registry.generateKeyboardEvent(0xFF0D, None, pyatspi.KEY_SYM)
    wait(lambda: not has(dialog, SHOWING), f"the chooser kept {path}")


def save(button, stem):
    press("push button", button)
    dialog = chooser("Save As")
    # The chooser sits over the program's window, modal, as the program asked.
    tree = run("xwininfo", "-root", "-tree")
    window = re.search(r'(0x[0-9a-f]+) "Save As": \("xdg-desktop-portal-gtk"', tree)
    wm = run("xprop", "-id", window[1], "WM_TRANSIENT_FOR", "_NET_WM_STATE")
    owner = re.search(r"window id # (0x[0-9a-f]+)", wm)
    if not owner or not re.search(rf'{owner[1]} "[^"]*": \("{re.escape(NAME)}"', tree) or \
            "_NET_WM_STATE_MODAL" not in wm:
        fail(f"chooser not modal over the program's window: {wm!r}")
    box = find(dialog, lambda n: n.getRoleName() == "text" and any(
        r.getRelationType() == pyatspi.RELATION_LABELLED_BY and r.getTarget(0).name == "Name:"
        for r in n.getRelationSet()), "Name box")
    answer(dialog, box, os.path.join(FOLDER, stem))


def saved(name):
    path = os.path.join(FOLDER, name)
    wait(lambda: os.path.exists(path) and os.path.getsize(path) > 0, f"{path} not written", 60)
    time.sleep(0.5)
    return path


def pick(path):
    dialog = chooser("Open")
    # "/" opens GTK's location box, which has neither name nor label.
    pyatspi.Registry.generateKeyboardEvent(0, "/", pyatspi.KEY_STRING)
    answer(dialog, find(dialog, lambda n: n.getRoleName() == "text" and has(n, FOCUSED), "location box"), path)


app = application(NAME)

press("page tab", "Self-Signed Certificate")
control(app, "text", "Common Name").queryEditableText().setTextContents("portal.example")
save("Generate the certificate and key as PEM files", "a")
key, crt = saved("a.key"), os.path.join(FOLDER, "a.crt")
subject = openssl("x509", "-in", crt, "-noout", "-subject")
if "CN = portal.example" not in subject or openssl("pkey", "-in", key, "-noout").strip():
    fail(f"PEM files: {subject!r}")
print("certificate:", subject.strip())

control(app, "password text", "Pass phrase").queryEditableText().setTextContents("b-secret")
save("Generate the certificate and key as one PKCS#12 bundle", "b.pfx")
listing = openssl("pkcs12", "-in", saved("b.pfx"), "-passin", "pass:b-secret", "-nokeys", "-clcerts")
if "subject=CN = portal.example" not in listing:
    fail(f"bundle: {listing!r}")
print("bundle: opened with its pass phrase")

# The bare name again: GTK was asked about "a" only, so the program asks.
before = {path: open(path, "rb").read() for path in (crt, key)}
save("Generate the certificate and key as PEM files", "a")
question = find(app, lambda n: n.getRoleName() in ("alert", "dialog") and n.name == "Save As", "question")
find(question, named("label", "a.crt already exists.\nDo you want to replace it?"), "question's text")
press("push button", "No")
time.sleep(1)
if any(open(path, "rb").read() != content for path, content in before.items()):
    fail("a No replaced the PEM files")
print("question: a.crt already exists; No kept both files")

press("page tab", "Certificate Signing Request")
control(app, "text", "Common Name").queryEditableText().setTextContents("req.portal.example")
save("Generate the request and its key", "r")
saved("r.key")
subject = openssl("req", "-in", os.path.join(FOLDER, "r.csr"), "-noout", "-subject", "-verify")
if "CN = req.portal.example" not in subject or "verify OK" not in subject:
    fail(f"request: {subject!r}")
print("request:", subject.strip().replace("\n", "; "))

press("page tab", "File Checksums")
press("check box", "MD5", "toggle")
press("push button", "Choose the file to check")
data = os.path.join(FOLDER, "data.bin")
pick(data[:-2] + "ni")  # a slip of the keys: GTK hands on a file that does not exist
application(NAME, timeout=1)
pick(data)  # so the chooser is back
with open(data, "rb") as content:
    md5 = hashlib.md5(content.read()).hexdigest().upper()
checksum = control(app, "label", md5, timeout=60)
if checksum.description != "MD5 checksum":
    fail(f"checksum described as {checksum.description!r}")
print("checksum:", checksum.name, checksum.description)

press("push button", "Close")
print("OK")
