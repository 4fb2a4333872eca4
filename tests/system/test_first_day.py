"""From the first start to a record that survives."""

import random
import signal
import time

from desktop import PROGRAM
from waiting import wait_until


def test_first_start_to_first_periods(desktop):
    desktop.plug()
    desktop.start().window_with("Done").find("Done").press()
    wait_until(desktop.records, "a first record")
    assert f'Exec="{PROGRAM}"' in (desktop.home / "config/autostart/org.zelvo.StandUp.desktop").read_text()


def test_killed_at_any_moment_it_loses_one_pulse_at_most(desktop):
    desktop.settings()
    desktop.clock.run(20)
    for life in range(8):
        seen, wall = desktop.records(), desktop.clock.now()
        until = time.monotonic() + random.uniform(0, 0.3 * (1 + life))
        program = desktop.start()
        wait_until(lambda: time.monotonic() > until)
        program.signal(signal.SIGKILL)
        program.ends(-signal.SIGKILL)
        killed, left = desktop.clock.now(), desktop.records()
        assert left[: len(seen)] == seen
        assert all(start <= end <= killed for start, end, _ in left)
        if left[len(seen) :]:
            assert left[-1][0] >= wall and killed - left[-1][1] < 15 + 20
        assert desktop.setting("Weight") == "70" and desktop.setting("ActivityGoal") == "15"
    # At that rate still: a store that somebody reads while its log is recovered is tried again at the next pulse.
    desktop.start()
    wait_until(lambda: len(desktop.records()) > len(left), "a record after all")
