"""A display, the windows that a program shows on it, and pictures of them."""
import os
import subprocess
import tempfile
import time

PATIENCE = 30  # seconds that a machine under load may take for anything
STEADY = 50  # pixels in which two pictures of the same may differ: a caret blinks


class Failure(Exception):
    pass


def wait_for(what, condition, patience=PATIENCE):
    """The condition's first answer that is true."""
    end = time.monotonic() + patience
    while True:
        answer = condition()
        if answer:
            return answer
        if time.monotonic() > end:
            raise Failure(f"waited in vain for {what}")
        time.sleep(0.05)


def run(*command, environment=None):
    done = subprocess.run(command, capture_output=True, text=True, env=environment, timeout=PATIENCE,
                          check=False)
    return done.returncode, done.stdout, done.stderr


class VirtualDisplay:
    """A display of our own, with a window manager: what a desktop is to a program."""

    def __init__(self):
        self.folder = tempfile.TemporaryDirectory(prefix="zek-display-")
        answer, tell = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(tell), "-screen", "0", "1280x1024x24", "-nolisten", "tcp"],
            pass_fds=[tell], stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        os.close(tell)
        with os.fdopen(answer) as pipe:
            self.name = ":" + pipe.readline().strip()
        self.manager = None
        if self.name == ":":
            raise Failure("the virtual display did not start")
        self.manage()

    def manage(self):
        settings = os.path.join(self.folder.name, "jwmrc")
        with open(settings, "w", encoding="utf-8") as file:
            file.write("<JWM><WindowStyle><Font>Sans-10</Font></WindowStyle></JWM>\n")
        environment = dict(os.environ, DISPLAY=self.name, LC_ALL="C.UTF-8")
        self.manager = subprocess.Popen(["jwm", "-f", settings], env=environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # A manager that is ready says so at the root window.
        wait_for("the window manager", lambda: "window id" in run(
            "xprop", "-root", "_NET_SUPPORTING_WM_CHECK", environment=environment)[1])

    def end(self):
        for process in (self.manager, self.server):
            if process:
                process.terminate()
                process.wait()
        self.folder.cleanup()


class Screen:
    """What is seen on a display of one program, whose windows bear a class name."""

    def __init__(self, display, class_name):
        self.environment = dict(os.environ, DISPLAY=display)
        self.class_name = class_name

    def tool(self, *command):
        status, output, errors = run(*command, environment=self.environment)
        if status != 0:
            raise Failure(f"{' '.join(command)} failed: {errors.strip()}")
        return output

    def windows(self):
        """Those that are visible, as a set; a search that a closing window disturbs counts for nothing."""
        _, output, _ = run("xdotool", "search", "--onlyvisible", "--class", self.class_name,
                           environment=self.environment)
        return set(output.split())

    def place(self, window):
        """x, y, width and height on the screen."""
        output = self.tool("xdotool", "getwindowgeometry", "--shell", window)
        values = dict(line.split("=") for line in output.split())
        return tuple(int(values[name]) for name in ("X", "Y", "WIDTH", "HEIGHT"))

    def click(self, x, y):
        self.tool("xdotool", "mousemove", str(x), str(y), "click", "1")

    def drag(self, x, y, to_x):
        self.tool("xdotool", "mousemove", str(x), str(y), "mousedown", "1",
                  "mousemove", str((x + to_x) // 2), str(y), "mousemove", str(to_x), str(y), "mouseup", "1")

    def key(self, name):
        self.tool("xdotool", "key", name)

    def picture(self, path):
        self.tool("import", "-silent", "-window", "root", path)

    def steady_picture(self, path, windows):
        """A picture in which nothing moves any more. False when other windows than these are there."""
        before = path + ".before.png"
        self.picture(before)

        def same():
            self.picture(path)
            if self.windows() != windows:
                return "other"
            if difference(before, path) <= STEADY:
                return "same"
            os.replace(path, before)
            return None

        answer = wait_for("a picture in which nothing moves", same)
        os.remove(before)
        return answer == "same"


def part(picture, place, path):
    """Cuts a part out of a picture."""
    x, y, width, height = place
    status, _, errors = run("convert", picture, "-crop", f"{width}x{height}+{x}+{y}", "+repage", path)
    if status != 0:
        raise Failure(f"{picture} cannot be cut: {errors.strip()}")
    return path


def difference(one, other):
    """In how many pixels two pictures of one size differ."""
    status, _, errors = run("compare", "-metric", "AE", one, other, "null:")
    if status > 1:
        raise Failure(f"{one} and {other} cannot be compared: {errors.strip()}")
    return int(float(errors.split()[0]))


def flatness(picture):
    """How much of the picture the most frequent colour takes, from 0 to 1."""
    status, output, errors = run("convert", picture, "-depth", "8", "-format", "%c", "histogram:info:-")
    counts = [int(line.split(":")[0]) for line in output.splitlines() if ":" in line]
    if status != 0 or not counts:
        raise Failure(f"{picture} cannot be read: {errors.strip()}")
    return max(counts) / sum(counts)
