"""Where text goes: the fields of a program that tells of them, and xterm, which tells nothing but what its shell got."""

import windows
from windows import wait_until


ERROR_OF_X = 83  # xterm's exit status


class Place:
    """A field: its text, and, where its program tells them, its marked text and whether a key goes to its end."""

    controls = {}  # what Return and BackSpace type, where they type something
    is_watched = True
    toolkit = "xim"
    program = 0

    def has_ended(self):
        """Whether its program has ended in a way that is known."""
        return False


class FieldPlace(Place):
    def __init__(self, fields, index):
        self.fields = fields
        self.index = index
        self.toolkit = fields.toolkit
        self.window = fields.two if index == 2 else fields.one

    def text(self):
        return self.fields.texts()[self.index]

    def marked(self):
        return self.fields.texts()[3]

    def has_focus(self):
        return self.fields.texts()[4].startswith(str(self.index))

    def is_at_end(self):
        return self.fields.texts()[4] == "%d!" % self.index

    def point(self):
        return self.fields.left + 380, self.fields.heights[self.index]

    def empty(self, stage):
        """Deletes all, as a person does, who sees whether it is gone."""
        wait_until(lambda: not self.text() or self.is_emptied(stage), "all is deleted", 30)

    def is_emptied(self, stage):
        try:
            with stage.holding("ctrl"):
                stage.press("a")
                wait_until(lambda: not self.is_at_end(), "all is selected", 3)
            stage.press("BackSpace")
            return wait_until(lambda: not self.text(), "all is deleted", 3)
        except windows.Failure:
            return False


class XtermPlace(Place):
    controls = {"Return": "\n", "BackSpace": "\x7f"}
    is_watched = False

    def __init__(self, desk, left):
        self.desk = desk
        self.left = left
        self.terminal = windows.XimWindow(desk, "vanoka-xterm-%d" % left)
        self.window = self.terminal.window
        self.before = 0  # what was there when it was emptied
        desk.processes.output("xdotool", "windowmove", "--sync", self.window, str(left), "0")

    def text(self):
        return self.terminal.text()[self.before:]

    def has_focus(self):
        return self.desk.processes.output("xdotool", "getwindowfocus") == self.window

    def is_at_end(self):
        return True

    def point(self):
        return self.left + 100, 50

    def empty(self, _):
        self.before += len(self.text())

    def has_ended(self):
        return self.terminal.process.poll() == ERROR_OF_X

    def close(self):
        self.terminal.close()


class Programs:
    """The programs of a client, "qt6-gtk3" or "xim", and all their fields."""

    def __init__(self, desk, client):
        self.running = []
        self.places = []
        toolkits = client.split("-")
        if toolkits == ["xim"]:
            toolkits = ["xim", "xim"]
        try:
            for number, toolkit in enumerate(toolkits):
                self.open(desk, toolkit, 500 * number)
        except BaseException:
            self.close()
            raise

    def open(self, desk, toolkit, left):
        if toolkit == "xim":
            place = XtermPlace(desk, left)
            self.running.append(place)
            self.places.append(place)
        else:
            fields = windows.Fields(desk, toolkit, "watched", left=left)
            self.running.append(fields)
            self.places += [FieldPlace(fields, index) for index in range(3)]
        for place in self.places:
            place.program = place.program or len(self.running)

    def close(self):
        for program in self.running:
            program.close()
