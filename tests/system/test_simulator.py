"""The desk simulator, as developers start it: on a pipe, and on a port from which a kernel borrows an adapter."""

import socket
import subprocess

from desktop import PROGRAM
from waiting import DEADLINE

# What adapters there are, the first one's import and its initialisation.
QUESTIONS = "0111800500000000 0111800300000000" + b"1-1".ljust(32, b"\0").hex()
QUESTIONS += "000000010000000700010001" + "0" * 24 + "00000008" + "0" * 24 + "2109030300000800030400FB00000000"


def test_it_obeys_a_pipe_and_lends_an_adapter(desktop):
    pipes = {"stdin": subprocess.PIPE, "stdout": subprocess.PIPE, "bufsize": 0}
    start = lambda *words: desktop.spawn(PROGRAM.with_name("zelvo-desk-sim"), *words, **pipes)  # noqa: E731
    for text, words, answer in (b"get 04\n", [], (b"04", 0)), (b"dance\n", [], (b"", 1)), (b"", ["--wire"], (b"", 2)):
        simulator = start(*words)
        assert (simulator.communicate(text, DEADLINE)[0][:2], simulator.returncode) == answer
    port = socket.create_server(("127.0.0.1", 0)).getsockname()[1]  # Free again at once.
    simulator = start("--usbip", port, "--wire")
    assert f"Port {port}" in simulator.stdout.readline().decode()
    assert socket.socket().connect_ex(("127.0.0.2", port)) != 0
    with socket.create_connection(("127.0.0.1", port), DEADLINE) as kernel:
        kernel.sendall(bytes.fromhex(QUESTIONS))
        assert simulator.stdout.readline().endswith(b" adapter 1 set 03 04 00 FB 00 00 00 00: ok\n")
        simulator.stdin.write(b"unplug\n")
        assert b"".join(iter(lambda: kernel.recv(4096), b""))[8:12] == b"\0\0\0\1", "one adapter, until the end"
    simulator.communicate(b"quit\n", DEADLINE)
    assert simulator.returncode == 0
