#!/usr/bin/env python3
"""Opens a report over a company, with nothing but Python's own ctypes.

Usage: reports.py LIBRARY COMPANY REPORT [LOGIN PASSWORD_FILE]

LIBRARY is libgoods_desktop, COMPANY a company file, REPORT the name of an export, such as Open_GoodAmountAsset.
Without LOGIN the sign-in window is shown.
"""
import ctypes
import sys

DONE = 0
INFORMATION = 1

TEXT = ctypes.c_char_p  # UTF-8

SHOW_MESSAGE = ctypes.CFUNCTYPE(ctypes.c_int32, ctypes.c_void_p, ctypes.c_int32, TEXT, TEXT, TEXT, ctypes.c_int32)


class Messages(ctypes.Structure):
    _fields_ = [("struct_size", ctypes.c_uint32), ("context", ctypes.c_void_p), ("show", SHOW_MESSAGE)]


class Options(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_uint32), ("encoding", ctypes.c_int32), ("look", ctypes.c_int32),
        ("unused", ctypes.c_int32), ("company", TEXT), ("login", TEXT), ("password", TEXT), ("user_name", TEXT),
        ("user_code", ctypes.c_int64), ("title", TEXT), ("settings_folder", TEXT), ("module", TEXT),
        ("connection", ctypes.c_void_p), ("rights", ctypes.c_void_p), ("documents", ctypes.c_void_p),
        ("settings", ctypes.c_void_p), ("messages", ctypes.POINTER(Messages)), ("waiting", ctypes.c_void_p),
        ("windows", ctypes.c_void_p),
    ]


class Report(ctypes.Structure):
    _fields_ = [
        ("struct_size", ctypes.c_uint32), ("software_part", ctypes.c_int32), ("name", TEXT), ("good", ctypes.c_int32),
        ("store", ctypes.c_int32), ("from_date", TEXT), ("to_date", TEXT), ("tags", TEXT), ("category", TEXT),
        ("mode", TEXT), ("first", TEXT), ("second", TEXT),
    ]


class Desktop:
    """A session; to be used in a with statement."""

    def __init__(self, library, **options):
        self._library = ctypes.CDLL(library)
        self._library.GoodsDesktop_Problem.restype = TEXT
        self._session = ctypes.c_void_p()
        self._options = Options(struct_size=ctypes.sizeof(Options), **options)  # its tables live as long as it

    def _check(self, code):
        if code != DONE:
            raise RuntimeError(self._library.GoodsDesktop_Problem(0).decode())

    def __enter__(self):
        self._check(self._library.GoodsDesktop_Create(ctypes.byref(self._options), ctypes.byref(self._session)))
        return self

    def open(self, name, **arguments):
        report = Report(struct_size=ctypes.sizeof(Report), name=name.encode(), **arguments)
        self._check(self._library.GoodsDesktop_Open(self._session, ctypes.byref(report)))

    def __exit__(self, *_):
        self._check(self._library.GoodsDesktop_Destroy(self._session))


@SHOW_MESSAGE
def show_message(_context, icon, _caption, text, _details, _balloon):
    """Warnings and errors go to the terminal; the library shows the others."""
    if icon <= INFORMATION:
        return 0
    print("message:", text.decode(), flush=True)
    return 1


def main(library, company, report, login=None, password_file=None):
    messages = Messages(struct_size=ctypes.sizeof(Messages), show=show_message)
    options = {"company": company.encode(), "messages": ctypes.pointer(messages)}
    if login:
        with open(password_file, encoding="utf-8") as file:
            options.update(login=login.encode(), password=file.readline().rstrip("\r\n").encode())
    with Desktop(library, **options) as desktop:
        desktop.open(report)
    print("closed")


if __name__ == "__main__":
    if len(sys.argv) not in (4, 6):
        sys.exit(__doc__)
    try:
        main(*sys.argv[1:])
    except (RuntimeError, OSError) as error:
        sys.exit(str(error))
