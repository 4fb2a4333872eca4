"""The record of a life: full disks, a damaged store, a second program on it."""

import os
import subprocess

import pytest
from waiting import DEADLINE, at_rest, wait_until

PULSE = 15.0
RATE = 20


@pytest.fixture
def ballast(desktop):
    # A disk of its own for the data folder, 1 MB of memory. Answers the file that fills it.
    desktop.settings()
    desktop.folder.mkdir()
    command = ["mount", "-t", "tmpfs", "-o", "size=1m", "tmpfs", desktop.folder]
    if os.geteuid() != 0 or subprocess.run(command, stderr=subprocess.DEVNULL).returncode != 0:
        pytest.skip("a disk of its own for the data folder needs the right to mount one")
    yield desktop.folder / "ballast"
    subprocess.run(["umount", "--lazy", desktop.folder], check=True)


def fill(ballast):
    subprocess.run(["dd", "if=/dev/zero", f"of={ballast}", "bs=512"], stderr=subprocess.DEVNULL)


def panel(program, expected=""):
    # The text of the error panel that says what is expected; it is then dismissed.
    says = lambda: " ".join(program.window_with("OK").says())  # noqa: E731
    words = wait_until(lambda: expected in (found := says()) and found, f"a panel with {expected!r}")
    program.window_with("OK").find("OK").press()
    return words


@pytest.mark.parametrize("lives", [0, 1])
def test_a_disk_that_is_full_at_the_start(desktop, ballast, lives):
    for _ in range(lives):
        desktop.start_recording().quit()
    fill(ballast)
    program = desktop.start()
    began = desktop.clock.now()
    assert "disk space. Nothing is recorded" in panel(program, "no space left")
    panel(program, "data file")  # The consequence follows its cause.
    wait_until(lambda: not desktop.windows(), "the panels closed")
    program.choose("History")
    program.window_with("Year")
    ballast.unlink()
    with desktop.clock.running(RATE):
        start, end, _ = wait_until(lambda: desktop.records()[lives:], "a record as soon as there is room")[-1]
        wait_until(lambda: desktop.records()[-1][1] > end, "a pulse")
    assert began - 1 < start < desktop.clock.now()
    program.quit()


def test_a_disk_that_fills_while_recording(desktop, ballast):
    program = desktop.start_recording()
    start = desktop.records()[0][0]
    for _ in range(2):
        fill(ballast)
        with desktop.clock.running(RATE):
            assert "disk space. Unsaved changes are kept" in panel(program, "no space left")
        saved = desktop.records()[0][1]
        desktop.clock.reach(desktop.clock.now() + 3 * PULSE, RATE)
        assert not desktop.windows(), "said once"
        ballast.unlink()
        with desktop.clock.running(RATE):
            wait_until(lambda: desktop.records()[0][1] > saved + 2 * PULSE, "the period saved")
    [(begin, saved, _)] = desktop.records()
    assert begin == start and saved == pytest.approx(desktop.clock.now(), abs=PULSE + RATE)
    fill(ballast)
    with desktop.clock.running(RATE):
        panel(program)
    wait_until(lambda: not at_rest(desktop.windows), "the panel closed")  # A question would go with it.
    desktop.start("--quit").ends(1, within=DEADLINE)  # A question keeps it.
    program.window_with("Quit anyway", "Cancel").find("Quit anyway").press()
    program.ends()


def test_a_damaged_store_is_left_alone_and_named(desktop):
    desktop.settings()
    desktop.folder.mkdir()
    before = b"This is no database. " * 400
    desktop.store.write_bytes(before)
    program = desktop.start()
    assert "from your backup" in panel(program, "StandUp.storedata")
    program.click_tray()
    while len(desktop.windows()) > 1:
        panel(program)
    program.window_with("Up").hears("Current session")
    wait_until(lambda: "Paused" in program.tray_icon()[1], "the tray")
    program.quit()
    assert desktop.store.read_bytes() == before


def test_a_store_that_may_not_be_written_is_named(desktop):
    desktop.settings()
    desktop.start_recording().quit()
    desktop.store.chmod(0o400)
    assert "healthy. Nothing is recorded" in panel(desktop.start(), "write-protected")


def test_two_programs_do_not_share_a_store(desktop):
    desktop.settings()
    desktop.start_recording()
    (desktop.home / "other").mkdir(mode=0o700)
    second = desktop.start(XDG_RUNTIME_DIR=str(desktop.home / "other"))
    assert "Close the other program. Nothing is recorded" in panel(second, "Another program")
    [refused] = [line for line in desktop.log().splitlines() if "another program has the name" in line]
    assert f"[{second.process.pid}]" in refused
