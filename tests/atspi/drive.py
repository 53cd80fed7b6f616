#!/usr/bin/python3
"""The program driven through the accessibility bus alone, as a screen-reader
user would: no mouse. Writes a self-signed certificate as PEM files
and as a PKCS#12 bundle, and a signing request (the texts written into their
boxes, the country typed with the keyboard and left with the caret in its box,
the file named in the save dialog) and checks them with the openssl
command; then opens the checksum page, ticks MD5, picks the file and reads the
size and the checksum back as the page exposes them; then closes the window.
Usage: drive.py FILE"""
import hashlib
import os
import stat
import subprocess
import sys
import time

import pyatspi

sys.path.insert(0, os.path.join(os.path.dirname(os.path.realpath(__file__)), "..", "support"))
from accessibility import act, application, control, fail, openssl, walk  # noqa: E402

FILE = sys.argv[1]


def name_file_in_dialog(path, button_names):
    dialog = control(app, "dialog")
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


def write(role, name, text):
    """Into the box as a user writes: the focus first, which the next box takes
    away, and the box hands its text on as it loses it."""
    box = control(app, role, name)
    act(box, "setfocus")
    box.queryEditableText().setTextContents(text)


def type_keys(role, name, text):
    """Into the box with the keyboard, through the display, as a person types;
    the caret stays there."""
    act(control(app, role, name), "setfocus")
    time.sleep(0.3)
    pyatspi.Registry.generateKeyboardEvent(0, text, pyatspi.KEY_STRING)
    time.sleep(0.5)


def generate(button_name, stem, written):
    """Presses the button, with the focus wherever it was, names the file, and
    waits until the last file is whole."""
    act(control(app, "push button", button_name), "press")
    name_file_in_dialog(stem, ("Save", "&Save"))
    deadline = time.time() + 90
    while time.time() < deadline and not (os.path.exists(written) and os.path.getsize(written) > 0):
        time.sleep(0.2)
    time.sleep(0.5)
    if stat.S_IMODE(os.stat(written).st_mode) & 0o077 and not written.endswith((".crt", ".csr")):
        fail(f"{written} is not owner-only")


app = application("zorvane")
folder = os.path.dirname(FILE)

# A self-signed certificate as PEM files, then as a bundle with a pass phrase.
act(control(app, "page tab", "Self-Signed Certificate"), "press")
write("text", "Common Name", "e2e.example")
generate("Generate the certificate and key as PEM files", os.path.join(folder, "e2e"),
         os.path.join(folder, "e2e.key"))
subject = openssl("x509", "-in", os.path.join(folder, "e2e.crt"), "-noout", "-subject")
if "CN = e2e.example" not in subject:
    fail(f"certificate subject {subject!r}")
print("certificate:", subject.strip())

act(control(app, "radio button", "Use the certificate for digital signing"), "press")
write("password text", "Pass phrase", "bundle-secret")
bundle = os.path.join(folder, "bundle.pfx")
generate("Generate the certificate and key as one PKCS#12 bundle", os.path.join(folder, "bundle"), bundle)
listing = openssl("pkcs12", "-in", bundle, "-passin", "pass:bundle-secret", "-nokeys", "-clcerts")
if "subject=CN = e2e.example" not in listing:
    fail(f"bundle {listing!r}")
usage = subprocess.run(["openssl", "x509", "-noout", "-ext", "keyUsage"], input=listing,
                       capture_output=True, text=True).stdout
if "Digital Signature" not in usage:
    fail(f"bundle's key usage {usage!r}")
print("bundle: opened with its pass phrase")

# A request with its subject, alternative names and an encrypted key.
act(control(app, "page tab", "Certificate Signing Request"), "press")
write("text", "Common Name", "req.example")
write("text", "Organization", "E2E Ltd")
write("password text", "Pass phrase", "request-secret")
type_keys("text", "Country code", "NZ")  # typed last: the press must hand it on
request = os.path.join(folder, "req.csr")
generate("Generate the request and its key", os.path.join(folder, "req"), os.path.join(folder, "req.key"))
subject = openssl("req", "-in", request, "-noout", "-subject", "-verify")
if "CN = req.example, O = E2E Ltd, C = NZ" not in subject or "verify OK" not in subject:
    fail(f"request {subject!r}")
key = openssl("pkey", "-in", os.path.join(folder, "req.key"), "-passin", "pass:request-secret", "-noout")
if key.strip():
    fail(f"request key {key!r}")
print("request:", subject.strip().replace("\n", "; "))

act(control(app, "page tab", "File Checksums"), "press")
act(control(app, "check box", "MD5"), "toggle")
act(control(app, "push button", "Choose the file to check"), "press")

name_file_in_dialog(FILE, ("Open", "&Open"))

with open(FILE, "rb") as data:
    content = data.read()
md5 = hashlib.md5(content).hexdigest().upper()
# The values read out as their text, what they are as the description.
checksum = control(app, "label", md5, timeout=60)
if checksum.description != "MD5 checksum":
    fail(f"checksum described as {checksum.description!r}")
size = control(app, "label", str(len(content)))
if size.description != "Size in bytes":
    fail(f"size described as {size.description!r}")
print("read out:", checksum.name, checksum.description, size.name)

act(control(app, "push button", "Close"), "press")
print("OK")
