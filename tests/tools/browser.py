"""A headless browser, driven through the pipe of its debugging interface."""

import base64
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

NAMES = ("chromium", "chromium-browser", "google-chrome")
OPTIONS = ("--headless", "--no-sandbox", "--disable-gpu", "--no-first-run", "--disable-sync",
           "--disable-background-networking", "--disable-component-update", "--hide-scrollbars",
           "--disable-dev-shm-usage", "--mute-audio", "--remote-debugging-pipe")
LONGEST_ANSWER = 60


def find_browser():
    """The browser's program, or None."""
    return next(filter(None, map(shutil.which, NAMES)), None)


class Browser:
    """One page of a browser of its own, with an empty profile and without a network."""

    def __init__(self, program):
        self.profile = tempfile.mkdtemp(prefix="qxmix-browser-")
        to_browser, self.orders = os.pipe()
        self.answers, from_browser = os.pipe()
        # The browser reads orders at 3 and answers at 4; higher numbers keep clear of both.
        high = [os.dup2(fd, 100 + index) for index, fd in enumerate((to_browser, from_browser))]
        command = f'exec 3<&{high[0]} 4>&{high[1]}; exec "$0" "$@"'
        self.process = subprocess.Popen(
            ["bash", "-c", command, program, *OPTIONS, f"--user-data-dir={self.profile}",
             "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            pass_fds=high)
        for fd in (to_browser, from_browser, *high):
            os.close(fd)
        self.buffer = b""
        self.last = 0
        self.session = None
        self.events = []
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        attached = self.call("Target.attachToTarget", targetId=target, flatten=True)
        self.session = attached["sessionId"]
        for domain in ("Page", "Runtime", "Log", "Network"):
            self.call(domain + ".enable")
        # Without a window the page would hear nothing of the focus.
        self.call("Emulation.setFocusEmulationEnabled", enabled=True)
        self.call("Network.emulateNetworkConditions", offline=True, latency=0,
                  downloadThroughput=-1, uploadThroughput=-1)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()
        os.close(self.orders)
        os.close(self.answers)
        shutil.rmtree(self.profile, ignore_errors=True)

    def receive(self):
        deadline = time.monotonic() + LONGEST_ANSWER
        while b"\0" not in self.buffer:
            if not select.select([self.answers], [], [], max(0, deadline - time.monotonic()))[0]:
                raise TimeoutError("the browser does not answer")
            block = os.read(self.answers, 65536)
            if not block:
                raise EOFError("the browser has ended")
            self.buffer += block
        message, self.buffer = self.buffer.split(b"\0", 1)
        return json.loads(message)

    def call(self, method, **parameters):
        """Carries out one order of the debugging interface; its result."""
        self.last += 1
        order = {"id": self.last, "method": method, "params": parameters}
        if self.session:
            order["sessionId"] = self.session
        os.write(self.orders, json.dumps(order).encode() + b"\0")
        while True:
            message = self.receive()
            if message.get("id") == self.last:
                if "error" in message:
                    raise RuntimeError(f"{method}: {message['error']}")
                return message["result"]
            self.events.append(message)

    def open(self, path):
        """Opens a file and waits until it is loaded."""
        self.events = []
        self.call("Page.navigate", url="file://" + str(path))
        while not any(event.get("method") == "Page.loadEventFired" for event in self.events):
            self.events.append(self.receive())

    def run(self, script):
        """The value of an expression in the page."""
        result = self.call("Runtime.evaluate", expression=script, returnByValue=True,
                           awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{script}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def shown_text(self):
        """The text of the page as people see it."""
        return self.run("document.body.innerText")

    def complaints(self):
        """What the page wrote to the console, exceptions and refused content included."""
        kinds = ("Runtime.consoleAPICalled", "Runtime.exceptionThrown", "Log.entryAdded")
        return [event for event in self.events if event.get("method") in kinds]

    def requests(self):
        """The addresses that the page asked for."""
        return [event["params"]["request"]["url"] for event in self.events
                if event.get("method") == "Network.requestWillBeSent"]

    def resize(self, width, height):
        self.call("Emulation.setDeviceMetricsOverride", width=width, height=height,
                  deviceScaleFactor=1, mobile=False)

    def point_at(self, x, y):
        self.call("Input.dispatchMouseEvent", type="mouseMoved", x=x, y=y)

    def press(self, key, modifiers=0):
        for kind in ("keyDown", "keyUp"):
            self.call("Input.dispatchKeyEvent", type=kind, key=key, code=key, modifiers=modifiers,
                      windowsVirtualKeyCode=VIRTUAL_KEYS[key])

    def screenshot(self):
        return base64.b64decode(self.call("Page.captureScreenshot", format="png")["data"])

    def print_to_pdf(self):
        return base64.b64decode(self.call("Page.printToPDF", printBackground=True,
                                          preferCSSPageSize=True)["data"])


VIRTUAL_KEYS = {"ArrowLeft": 37, "ArrowUp": 38, "ArrowRight": 39, "ArrowDown": 40, "End": 35,
                "Home": 36, "PageDown": 34, "PageUp": 33, "Tab": 9}
