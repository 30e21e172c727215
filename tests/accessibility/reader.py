"""The program as a screen reader meets it: windows and controls by role and name, nothing else."""
import os
import subprocess
import sys
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi, GLib

PATIENCE = 30  # seconds that something may take on a machine that has much else to do
MENUS = ("menu item", "check menu item")


class NotThere(AssertionError):
    pass


def wait(for_what, condition):
    """What the condition gives as soon as it gives something."""
    end = time.monotonic() + PATIENCE
    while True:
        try:
            found = condition()
            if found:
                return found
        except GLib.Error:
            pass  # it went while it was looked at
        if time.monotonic() > end:
            raise NotThere(for_what)
        time.sleep(0.03)


def soon(condition):
    end = time.monotonic() + 0.3
    while not condition() and time.monotonic() < end:
        time.sleep(0.01)
    return condition()


def has(control, state):
    return control.get_state_set().contains(state)


def below(control):
    for index in range(control.get_child_count()):
        child = control.get_child_at_index(index)
        if child is not None:
            yield child
            yield from below(child)


class Window:
    def __init__(self, control):
        self.control = control

    def find(self, role, name):
        for each in below(self.control):
            if each.get_role_name() == role and each.get_name() == name and has(each, Atspi.StateType.SHOWING):
                return each
        return None

    def get(self, role, name):
        return wait(f"{role} '{name}' in '{self.control.get_name()}'\n{self.outline()}", lambda: self.find(role, name))

    def outline(self):
        return "\n".join(f"  {each.get_role_name()} '{each.get_name()}'" for each in below(self.control)
                         if has(each, Atspi.StateType.SHOWING))

    def press(self, name, role="push button"):
        button = wait(f"{role} '{name}' that can be pressed",
                      lambda: (b := self.find(role, name)) and has(b, Atspi.StateType.ENABLED) and b)
        try:
            button.do_action(0)
        except GLib.Error:
            pass  # the answer comes when the window that was opened has closed

    def menu(self, *path):
        """An entry of the menu bar, whether its menu is open or not."""
        level = self.control
        for name in path:
            level = wait(f"menu entry '{name}'", lambda: next(
                (e for e in below(level) if e.get_role_name() in MENUS and e.get_name() == name), None))
        try:
            level.do_action(0)
        except GLib.Error:
            pass

    def wait_in_front(self):
        wait(f"'{self.control.get_name()}' in front", lambda: has(self.control, Atspi.StateType.ACTIVE))

    def focus(self, role, name):
        self.wait_in_front()
        control = self.get(role, name)
        focused = lambda: has(control, Atspi.StateType.FOCUSED)
        control.grab_focus()
        for _ in range(80):  # lists cannot be asked to take the focus: Tab leads to them
            if soon(focused):
                break
            key(Tab)
        wait(f"focus on {role} '{name}'", focused)
        return control

    def choose(self, name, role="radio button"):
        """With the space bar: what such a button does follows from a key or a click."""
        self.focus(role, name)
        key(Space)

    def part(self, role, name=""):
        return Window(self.get(role, name))

    def select(self, name, entry, role="list", entry_role="list item"):
        """Goes down until the entry is the chosen one: a list from its top, a tree from where it is."""
        self.focus(role, name)
        if role == "list":
            key(Home)
        chosen = lambda: has(self.get(entry_role, entry), Atspi.StateType.SELECTED)
        for _ in range(50):
            if soon(chosen):
                return
            key(Down)
        raise NotThere(f"'{entry}' chosen in '{name}'")

    def type(self, name, text, role="text", leave=True):
        """Types over what stands in the field, as with a keyboard, and leaves it by Tab."""
        field = self.focus(role, name)
        length = field.get_text_iface().get_character_count()
        if length:
            field.get_text_iface().add_selection(0, length)
        keys(text)
        wait(f"'{text}' in '{name}', not '{text_of(field)}'", lambda: text in text_of(field).replace(".", "")
             or text in text_of(field))
        if leave:
            key(Tab)
            wait(f"'{name}' left", lambda: not has(field, Atspi.StateType.FOCUSED))
        return field


Tab, Return, Escape, Space, Home, Down = 0xFF09, 0xFF0D, 0xFF1B, 0x20, 0xFF50, 0xFF54


def key(symbol):
    Atspi.generate_keyboard_event(symbol, None, Atspi.KeySynthType.SYM)


def keys(text):
    for character in text:
        key(ord(character))


def text_of(control):
    text = control.get_text_iface()
    return text.get_text(0, text.get_character_count())


class Program:
    def __init__(self, path, *arguments, **environment):
        self.process = subprocess.Popen([path, *arguments], env={
            **os.environ, "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "1", "QT_QPA_PLATFORM": "xcb", **environment})
        self.application = wait("the program", self._find)
        self.application.set_cache_mask(Atspi.Cache.NONE)  # what is asked is what is now

    def _find(self):
        if self.process.poll() is not None:
            raise NotThere(f"the program ended with {self.process.returncode}")
        desktop = Atspi.get_desktop(0)
        for index in range(desktop.get_child_count()):
            each = desktop.get_child_at_index(index)
            if each is not None and each.get_process_id() == self.process.pid and each.get_child_count():
                return each
        return None

    def windows(self):
        return [w for w in (self.application.get_child_at_index(i)
                            for i in range(self.application.get_child_count()))
                if w is not None and has(w, Atspi.StateType.SHOWING)]

    def window(self, beginning, role=None):
        """The window whose title begins so."""
        return Window(wait(f"window '{beginning}', there are {[w.get_name() for w in self.windows()]}", lambda: next(
            (w for w in self.windows() if w.get_name().strip().startswith(beginning)
             and role in (None, w.get_role_name())), None)))

    def gone(self, beginning, window=None):
        wait(f"'{beginning}' closed", lambda: not any(
            w.get_name().strip().startswith(beginning) and (window is None or w == window.control)
            for w in self.windows()))

    def ended(self):
        wait("the program's end", lambda: self.process.poll() is not None)
        if self.process.returncode != 0:
            raise NotThere(f"a good end, not {self.process.returncode}")

    def outline(self):
        return "\n".join(f"{w.get_role_name()} '{w.get_name()}'\n{Window(w).outline()}" for w in self.windows())

    def __enter__(self):
        return self

    def __exit__(self, kind, *_):
        if kind is not None:
            print(self.outline(), file=sys.stderr)
        if self.process.poll() is None:
            self.process.terminate()
            self.process.wait(PATIENCE)
