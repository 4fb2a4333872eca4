"""A tray that is late or leaves, and an adapter that is taken, silent or reports errors."""

import fcntl

import pytest
from bus import call
from gi.repository import GLib
from Xlib import X
from waiting import DEADLINE, holds_for, wait_until


@pytest.mark.desktop(tray=False)
def test_a_tray_that_is_late_and_one_that_leaves(desktop):
    desktop.settings()
    program = desktop.start(XDG_CURRENT_DESKTOP="GNOME")
    with desktop.clock.running(10):
        program.in_front("Zelvo StandUp")  # By itself.
    wait_until(lambda: desktop.has_owner(desktop.session, "org.zelvo.StandUp"), "the program on the bus")
    leave = lambda: desktop.tray.process.terminate()  # noqa: E731
    for tray, ask in (list, program.show), (desktop.add_tray, program.click_tray), (leave, program.show):
        desktop.key("Escape")
        wait_until(lambda: not desktop.windows(), "the window closed")
        tray()
        ask()
        program.in_front("Zelvo StandUp")
    desktop.add_tray()
    program.choose("History")
    desktop.window("History")
    assert b"\xff\xff\xff\xff" in bytes(program.tray_icon()[0][0][2]), "white on that desktop's dark panel"
    program.click_tray("ContextMenu")  # As a host does that draws no menus.
    chosen = lambda: desktop.key("Up") and desktop.key("Return") and program.process.poll() is not None  # noqa: E731
    wait_until(chosen, "the menu's last entry, which ends the program")
    program.ends()
    assert len(desktop.records()) == 1


@pytest.mark.desktop(tray=False)
def test_without_a_tray_no_window_is_added_to_one(desktop):
    desktop.settings()
    desktop.start("--history").in_front("History")
    with desktop.clock.running(10):
        wait_until(lambda: "No tray is there" in desktop.log(), "the patience over")
        holds_for(0.5, lambda: set(desktop.windows()) == {"History"}, "that window alone")


@pytest.mark.desktop(tray=False)
def test_the_tray_of_an_x11_panel(desktop):
    desktop.settings()
    panel = desktop.foreign_window(0, 0, 24, 24)
    panel.set_selection_owner(desktop.x.get_atom("_NET_SYSTEM_TRAY_S0"), X.CurrentTime)
    desktop.start()
    asked = lambda: desktop.x.pending_events() and desktop.x.next_event().type == X.ClientMessage  # noqa: E731
    wait_until(asked, "an icon that asks for its place")


def test_the_icon_tells_whether_a_desk_is_there_and_a_silent_adapter_is_none(desktop):
    desktop.settings(DevicePosition1=500, DevicePosition2=1000)
    adapter = desktop.plug(height=1500)
    adapter.silent = True
    program = desktop.start(XDG_CURRENT_DESKTOP="X-Generic:KDE")
    without, told = program.tray_icon()
    assert told == "No desk connected" and b"\xff\x23\x26\x29" in bytes(without[0][2]), "dark, as the words in windows are"
    assert [side for side, *_ in without] == [16, 22, 24, 32, 44]
    program.click_tray()
    main = program.window_with("Up")
    main.hears("Please connect your desk")
    wait_until(lambda: adapter.hanging, "a transfer that hangs")
    desktop.click(*main.find("Up").middle)  # It waits for nothing.
    program.choose("History")
    desktop.window("History")
    adapter.answer()
    with desktop.clock.running(10):
        wait_until(desktop.records, "a first record")
    main.hears("77 cm")
    assert set(adapter.values()) == {"init", 0x8001}
    pictures = [without]
    for height, error, words in [
        (1500, None, "Standing at 77 cm, 8\u00a0minutes to the next change"),
        (600, None, "Sitting at 68 cm, 23\u00a0minutes to the next change"),
        (300, None, "Sitting at 65 cm, 23\u00a0minutes to the next change"),
        (300, (0, [7]), "The desk reports an error (65 cm)"),
        (300, None, "Sitting at 65 cm, 23\u00a0minutes to the next change"),
    ]:
        adapter.put(height)
        adapter.error = error
        wait_until(lambda words=words: program.tray_icon()[1] == words, words, 40)
        pictures.append(program.tray_icon()[0])
    assert [pictures.index(picture) for picture in pictures] == [0, 1, 2, 2, 4, 2]
    with desktop.clock.running(10):
        wait_until(lambda: "22\u00a0minutes" in program.tray_icon()[1], "a minute less")
    adapter.communicating = False
    adapter.failure = 32  # EPIPE, so that the program looks whether the desk is there.
    main.hears("Please connect your desk")
    assert program.tray_icon() == (without, "No desk connected")


def test_an_error_is_shown_and_its_page_opened(desktop):
    opened = desktop.keep_opened_links()
    desktop.settings()
    adapter = desktop.plug()
    program = desktop.start_recording()
    program.click_tray()
    main = program.window_with("Up")
    adapter.error = (0, [7])
    main.hears("E07:")
    link = next(node for node in main.walk() if "E07:" in node.name)
    activate = (desktop.session, "org.zelvo.StandUp", "/org/zelvo/StandUp", "org.freedesktop.Application", "Activate")
    pages = []
    for token, ask in {
        "command": lambda token: desktop.start("--show", XDG_ACTIVATION_TOKEN=token).ends(within=DEADLINE),
        "start": lambda token: desktop.start(XDG_ACTIVATION_TOKEN=token).ends(within=DEADLINE),
        "icon": lambda token: call(*activate, "(a{sv})", {"activation-token": GLib.Variant("s", token)}),
    }.items():
        ask(token)
        x, y = link.middle
        desktop.click(x - 8 + 4 * len(pages), y)  # Elsewhere each time, or it is a double click.
        pages += ["https://standup.zelvo.example/errors", token]
        wait_until(lambda: opened() == pages, "the page about it")


@pytest.mark.parametrize("way", ["closed", "unlocked"])
def test_an_adapter_in_other_hands_is_taken_when_it_is_free(desktop, way):
    desktop.settings(DevicePosition1=500, DevicePosition2=1000)
    stranger = desktop.plug(maker="Somebody Else A/S")
    adapter = desktop.plug(height=1500)
    with open(adapter.file, "r+") as other:
        fcntl.flock(other, fcntl.LOCK_EX)
        desktop.start()
        wait_until(lambda: "is in use by another program" in desktop.log(), "a refused adapter")
        refused = desktop.clock.now()
        wait_until(lambda: desktop.ask("Status")[0]["desk"] == "busy", "the bar told of it")
        assert not adapter.wire
        if way == "closed":  # This is heard of.
            other.close()
        else:  # This is not: it is tried again every now and then.
            desktop.clock.run(15)
            fcntl.flock(other, fcntl.LOCK_UN)
        wait_until(lambda: adapter.values()[:2] == ["init", 0x8001], "the adapter taken")
        assert 20 * (way == "unlocked") <= desktop.clock.now() - refused < (25 if way == "closed" else 250)
    wait_until(desktop.records, "a first record")
    assert not stranger.wire and not stranger.looks
