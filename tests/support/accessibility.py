"""What the end-to-end drivers share: finding the program's and the desktop's
nodes on the accessibility bus, acting on them, and the openssl command."""
import subprocess
import sys
import time

import pyatspi


def fail(message):
    print("FAIL:", message)
    sys.exit(1)


def wait(probe, failure, timeout=20):
    """The probe's first true answer."""
    deadline = time.time() + timeout
    while time.time() < deadline:
        answer = probe()
        if answer:
            return answer
        time.sleep(0.2)
    fail(failure)


def walk(node):
    yield node
    try:
        children = [node.getChildAtIndex(i) for i in range(node.childCount)]
    except Exception:  # a window that went while we looked
        return
    for child in children:
        if child is not None:
            yield from walk(child)


def has(node, state):
    try:
        return node.getState().contains(state)
    except Exception:
        return False


def first(root, test):
    for node in walk(root):
        try:
            if has(node, pyatspi.STATE_SHOWING) and test(node):
                return node
        except Exception:
            continue


def find(root, test, what, timeout=20):
    """The first showing node that passes the test, once there is one."""
    return wait(lambda: first(root, test), f"no {what}", timeout)


def named(role, name=None):
    return lambda node: node.getRoleName() == role and name in (None, node.name)


def application(name, timeout=30):
    def probe():
        desktop = pyatspi.Registry.getDesktop(0)
        return next((a for a in map(desktop.getChildAtIndex, range(desktop.childCount))
                     if a is not None and a.name == name), None)
    return wait(probe, f"{name} is not on the accessibility bus", timeout)


def act(node, action):
    actions = node.queryAction()
    for i in range(actions.nActions):
        if actions.getName(i).lower() == action:
            return actions.doAction(i)
    fail(f"{node.name!r} has no action {action}")


def openssl(*arguments):
    return subprocess.run(["openssl", *arguments], stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, text=True).stdout


def control(root, role, name=None, timeout=20):
    """The first showing node of that role, and of that name where one is given."""
    return find(root, named(role, name), f"{role} {name!r}", timeout)
