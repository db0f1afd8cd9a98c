"""Runs the tool with a terminal behind one of its streams."""

import fcntl
import os
import pty
import select
import struct
import termios


def shown_at_terminal(tool, words, stream="stdout", columns=80, environment=None, **streams):
    """What the tool shows at a terminal that stands behind this stream."""
    master, slave = pty.openpty()
    fcntl.ioctl(slave, termios.TIOCSWINSZ, struct.pack("HHHH", 24, columns, 0, 0))
    process = tool.start(words, env={**tool.environment, "TERM": "xterm", **(environment or {})},
                         **streams, **{stream: slave})
    os.close(slave)
    shown = b""
    while select.select([master], [], [], 20)[0]:
        try:
            block = os.read(master, 4096)
        except OSError:
            break
        if not block:
            break
        shown += block
    process.communicate()
    os.close(master)
    return shown.decode().replace("\r\n", "\n")
