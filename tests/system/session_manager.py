"""The session manager of a desktop, over the session management protocol: it asks programs to save and to die."""

import ctypes as c
import select

from waiting import wait_until

SAVE_BOTH, INTERACT_IF_WANTED = 2, 2
ALL_REQUESTS = 0x3FF
# A client's requests, in the order of the library's structure of callbacks. Each gets the client first.
REQUESTS = ["register", "interact", "interact_done", "save_request", "second_phase", "saved"]
REQUESTS += ["close", "set_properties", "delete_properties", "get_properties"]
ICE, SM = c.CDLL("libICE.so.6"), c.CDLL("libSM.so.6")


class Pointer(c.c_void_p):
    # One that stays one: a plain one is handed over as a number.
    pass


for function in (ICE.IceAcceptConnection, ICE.IceComposeNetworkIdList, SM.SmsGenerateClientID):
    function.restype = Pointer
CALLBACK = c.CFUNCTYPE(c.c_int, Pointer, Pointer, Pointer)
ACCEPT_ALL = c.CFUNCTYPE(c.c_int, c.c_char_p)(lambda _: 1)
BEAR_ERRORS = c.CFUNCTYPE(None, Pointer)(lambda _: None)  # The library's own way is to end the process.
NEW_CLIENT = c.CFUNCTYPE(c.c_int, Pointer, Pointer, c.POINTER(c.c_ulong), c.POINTER(c.c_void_p), Pointer)


class SessionManager:
    def __init__(self):
        self.client = None  # The program that registered.
        self.saves = 0
        answers = {"register": self._register, "saved": self._saved}
        self._callbacks = [CALLBACK(answers.get(name, lambda *_: 0)) for name in REQUESTS]
        self._welcome = NEW_CLIENT(self._new_client)
        ICE.IceSetIOErrorHandler(BEAR_ERRORS)
        error = c.create_string_buffer(256)
        assert SM.SmsInitialize(b"standup", b"1", self._welcome, None, ACCEPT_ALL, 256, error), error.value
        count, doors, self._lines = c.c_int(), c.POINTER(Pointer)(), []
        assert ICE.IceListenForConnections(c.byref(count), c.byref(doors), 256, error), error.value
        self._doors = {ICE.IceGetListenConnectionNumber(door): door for door in doors[: count.value]}
        for door in self._doors.values():
            ICE.IceSetHostBasedAuthProc(door, ACCEPT_ALL)
        self.address = c.string_at(ICE.IceComposeNetworkIdList(count.value, doors)).decode()

    def _new_client(self, _, __, mask, callbacks, ___):
        mask[0] = ALL_REQUESTS
        for number, callback in enumerate(self._callbacks):  # Each with data of its own, which is none.
            callbacks[2 * number] = c.cast(callback, c.c_void_p)
            callbacks[2 * number + 1] = None
        return 1

    def _register(self, client, *_):
        self.client = client
        return bool(SM.SmsRegisterClientReply(client, SM.SmsGenerateClientID(client)))

    def _saved(self, client, _, is_saved):
        self.saves += (is_saved.value or 0) & 1
        return 0

    def turn(self):
        # Handles what has come.
        lines = {ICE.IceConnectionNumber(line): line for line in self._lines}
        for ready in select.select([*self._doors, *lines], [], [], 0)[0]:
            if ready in self._doors:
                self._lines.append(ICE.IceAcceptConnection(self._doors[ready], c.byref(c.c_int())))
            elif ICE.IceProcessMessages(lines[ready], None, None):
                self._lines.remove(lines[ready])  # It closed.

    def until(self, condition, what):
        wait_until(lambda: self.turn() or condition(), what)

    def ask_to_save(self):
        # As at the beginning of a log-out.
        saves = self.saves
        SM.SmsSaveYourself(self.client, SAVE_BOTH, 1, INTERACT_IF_WANTED, 0)
        self.until(lambda: self.saves > saves, "the program's word that it has saved")
