"""A tray that is late or leaves, an adapter that is taken or reports errors, and what a screen reader is told."""

import fcntl

import pytest
from waiting import wait_until


@pytest.mark.parametrize("tray", ["late", "none"])
def test_without_a_tray_the_window_comes_by_itself(desktop, tray):
    desktop.settings()
    program = desktop.start("--simulate")
    desktop.clock.run(10)
    window = desktop.window("Zelvo StandUp")
    desktop.clock.run(1)
    wait_until(lambda: desktop.is_active(window), "the window in front")
    desktop.key("Escape")
    wait_until(lambda: not desktop.windows(), "the window closed")
    if tray == "late":
        desktop.add_tray()
        program.click_tray()
    else:
        program.show()
    wait_until(lambda: desktop.is_active(desktop.window("Zelvo StandUp")), "the window in front")


def test_a_tray_that_leaves_and_comes_again(desktop):
    desktop.settings()
    tray = desktop.add_tray()
    program = desktop.start("--simulate")
    assert program.tray_item()
    tray.end()
    wait_until(lambda: not desktop.has_owner(desktop.session, tray.name), "no tray")
    program.show()
    desktop.key("Escape")
    wait_until(lambda: not desktop.windows(), "the window closed")
    desktop.add_tray()
    program.choose("History")
    desktop.window("History")


def test_a_second_start_ends_and_shows_the_first(desktop):
    desktop.settings()
    desktop.add_tray()
    first = desktop.start_recording("--simulate")
    window = first.show()
    wait_until(lambda: desktop.is_active(window), "the window in front")
    assert first.process.poll() is None and len(desktop.records()) == 1


def test_an_error_is_shown_and_goes_with_its_adapter(desktop):
    program, adapter = desktop.show_with_adapter()
    main = program.window_with("Up")
    adapter.error = (0x0D, [5, 123])
    for line in ("E01: The desk has lost its position", "E02: Overload while going up", "E03", "E05:", "E123:"):
        main.hears(line)
    adapter.error = (0, [7])
    main.hears("E07:")
    adapter.unplug()
    main.hears("Please connect your desk")
    desktop.clock.run(10)
    wait_until(lambda: not any("E07" in words for words in main.says()), "the error gone with its adapter")
    desktop.clock.run(1)
    desktop.plug(height=1500)
    main.hears("77 cm")
    main.hears("of today’s goal")


@pytest.mark.parametrize("way", ["closed", "unlocked"])
def test_an_adapter_in_other_hands_is_taken_when_it_is_free(desktop, way):
    desktop.settings(DevicePosition1=500, DevicePosition2=1000)
    adapter = desktop.plug(height=1500)
    with open(adapter.file, "r+") as other:
        fcntl.flock(other, fcntl.LOCK_EX)
        desktop.start()
        wait_until(lambda: "Open failed" in desktop.log(), "a refused adapter")
        refused = desktop.clock.now()
        assert not adapter.wire
        if way == "closed":  # This is heard of.
            other.close()
        else:  # This is not: it is tried again every now and then.
            desktop.clock.run(15)
            fcntl.flock(other, fcntl.LOCK_UN)
        wait_until(lambda: adapter.values()[:2] == ["init", 0x8001], "the adapter taken")
        assert (desktop.clock.now() < refused + 25) == (way == "closed")
    wait_until(desktop.records, "a first record")


def test_an_adapter_of_another_maker_is_left_alone(desktop):
    desktop.settings()
    stranger = desktop.plug(maker="Somebody Else A/S")
    desktop.start()
    ours = desktop.plug()
    wait_until(desktop.records, "a first record")
    assert ours.values() == ["init", 0x8001] and not stranger.wire and not stranger.reads


def test_what_a_screen_reader_is_told(desktop):
    program, adapter = desktop.show_with_adapter()
    main = program.window_with("Up")
    wait_until(lambda: "Current session" in main.says(), "the session")
    heard = {(node.role, node.name.replace("\n", "")) for node in main.walk() if node.has(25)}
    buttons = {("push button", name) for name in "Close Down Up Sit Stand History Settings".split()}
    assert buttons | {("push button", "Position 3"), ("label", "Desk height 71 cm")} <= heard
    assert ("progress bar", "Progress towards today’s goal: 0 min") in heard
    up = main.find("Up")
    assert up.description == "Hold to raise the desk" and "Press" not in up.actions
    adapter.put(1300)
    main.hears("75 cm")
    adapter.communicating = False
    adapter.failure = 32  # EPIPE, so that the program looks whether the desk is there.
    main.hears("Please connect your desk")
