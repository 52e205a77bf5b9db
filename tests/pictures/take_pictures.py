#!/usr/bin/python3
"""Takes pictures of the example with dialogs, and checks what can be checked of them.

usage: take_pictures.py DIALOGS FOLDER

The program is led through its windows in English and in Korean by keys and mouse, on a display of its own with
a window manager or, with ZEK_WINE_STATE set, as a Windows program in Wine on that display. The pictures stay in
FOLDER, LANGUAGE-SCENE.png. No window may be blank, the path must be shortened when the main window narrows,
the message must close by itself, and no two languages may look alike. A person looks at the rest.
"""
import os
import shutil
import subprocess
import sys
import tempfile

from screen import STEADY, Failure, Screen, VirtualDisplay, difference, flatness, part, run, wait_for

SCENES = ("main", "narrow", "message", "section")
NARROW = 440  # pixels
SEEN = 0.98  # of a window may be of one colour; texts and frames are the rest
WINE = os.environ.get("ZEK_WINE_STATE")
# How a language is asked for. Two code pages must look alike where the texts do not name them.
LANGUAGES = {"english": "en_US.UTF-8", "korean": "ko_KR.UTF-8"}
if not WINE:
    LANGUAGES["korean-euckr"] = "ko_KR.eucKR"


class Session:
    """The program in one language, from its start to its end."""

    def __init__(self, program, display, language, folder, home):
        self.screen = Screen(display, "dialogs")
        self.language = language
        self.folder = folder
        environment = dict(os.environ, DISPLAY=display, LC_ALL=LANGUAGES[language], ZEK_HOME=home)
        environment.pop("QT_QPA_PLATFORM", None)
        launcher = [os.path.join(os.path.dirname(__file__), "..", "wine", "run.sh")] if WINE else []
        self.process = subprocess.Popen([*launcher, program], env=environment, start_new_session=True)
        self.parts = {}

    def path(self, scene):
        return os.path.join(self.folder, f"{self.language}-{scene}.png")

    def opened(self, before):
        """The window that is there besides those before."""
        def one():
            if self.process.poll() is not None:
                raise Failure(f"the program ended with {self.process.returncode}")
            fresh = self.screen.windows() - before
            return fresh.pop() if len(fresh) == 1 else None
        return wait_for("a window", one)

    def take(self, scene, window, others=()):
        """Takes the scene's picture and cuts the window out of it. False when the window closed meanwhile."""
        place = self.screen.place(window)
        if not self.screen.steady_picture(self.path(scene), {window, *others}):
            return False
        self.parts[scene] = part(self.path(scene), place, self.path(scene + "-window"))
        share = flatness(self.parts[scene])
        if share > SEEN:
            raise Failure(f"{self.path(scene)} is blank: {share:.1%} of the window is of one colour")
        return True

    def activate(self, window):
        x, y, width, height = self.screen.place(window)
        self.screen.click(x + width - 20, y + height - 20)

    def narrow(self, window):
        x, y, width, height = self.screen.place(window)
        if WINE:  # the window has its frame within
            self.screen.drag(x + width - 2, y + height // 2, x + NARROW - 2)
        else:
            self.screen.tool("xdotool", "windowsize", window, str(NARROW), str(height))
        wait_for("the narrow window", lambda: abs(self.screen.place(window)[2] - NARROW) < 20)

    def message(self, main):
        """Opens the message, which closes itself: on a slow machine before its picture is steady."""
        for _ in range(5):
            self.screen.key("alt+t")
            box = self.opened({main})
            try:
                taken = self.take("message", box, [main])
            except Failure:
                if box in self.screen.windows():
                    raise
                taken = False
            wait_for("the message to close by itself", lambda: self.screen.windows() == {main})
            if taken:
                return
        raise Failure("the message closes too soon for a picture")

    def lead(self):
        main = self.opened(set())
        self.activate(main)
        self.take("main", main)
        self.narrow(main)
        self.take("narrow", main)
        self.message(main)
        self.screen.key("alt+s")
        section = self.opened({main})
        self.take("section", section, [main])
        self.screen.key("Escape")
        wait_for("the dialog to close", lambda: self.screen.windows() == {main})
        self.screen.key("alt+x")
        self.process.wait(timeout=30)
        if self.process.returncode != 0:
            raise Failure(f"the program ended with {self.process.returncode}")

    def end(self):
        if self.process.poll() is None:
            os.killpg(self.process.pid, 9)
            self.process.wait()


def path_band(session, scene):
    """Where the shortened path begins, in a main window of any width."""
    source = session.parts[scene]
    height = int(run("identify", "-format", "%h", source)[1])
    return part(source, (10, height * 15 // 100, 240, height * 18 // 100), session.path(scene + "-path"))


def check(sessions):
    for session in sessions:
        if difference(path_band(session, "main"), path_band(session, "narrow")) <= STEADY:
            raise Failure(f"{session.language}: the path is not shortened")
    english, korean = sessions[:2]
    for scene in SCENES:
        if difference(english.path(scene), korean.path(scene)) <= 10 * STEADY:
            raise Failure(f"{scene}: English and Korean look alike")
    for other in sessions[2:]:
        if difference(other.parts["section"], korean.parts["section"]) > STEADY:
            raise Failure(f"{other.language}: the dialog differs between code pages")


def finish(sessions):
    """What a person looks at: the pictures without the empty screen round the windows."""
    for session in sessions:
        for scene in SCENES:
            for name in (scene + "-window", scene + "-path"):
                if os.path.exists(session.path(name)):
                    os.remove(session.path(name))
            run("mogrify", "-trim", "+repage", session.path(scene))


def lead_all(program, display, folder):
    sessions = []
    for language in LANGUAGES:
        with tempfile.TemporaryDirectory(prefix="zek-pictures-") as home:
            session = Session(program, display, language, folder, home)
            try:
                session.lead()
            except Failure as failure:
                session.screen.picture(session.path("failed"))
                raise Failure(f"{language}: {failure}") from failure
            finally:
                session.end()
        sessions.append(session)
    return sessions


def main(program, folder):
    shutil.rmtree(folder, ignore_errors=True)
    os.makedirs(folder)
    if not run("fc-list", ":lang=ko")[1].strip():
        raise Failure("no font with Korean letters is installed")
    own = None if WINE else VirtualDisplay()
    try:
        if WINE:
            with open(os.path.join(WINE, "display"), encoding="utf-8") as file:
                display = ":" + file.read().strip()
        else:
            display = own.name
        sessions = lead_all(os.path.abspath(program), display, folder)
    finally:
        if own:
            own.end()
    check(sessions)
    finish(sessions)
    print(f"{len(sessions) * len(SCENES)} pictures lie in {folder}.")


try:
    main(*sys.argv[1:])
except Failure as error:
    print(error)
    sys.exit(1)
