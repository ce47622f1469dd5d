#!/usr/bin/env python3
"""Types its arguments as a person would, and prints what stands in the field: type_sinhala.py amma "kaa, kii"."""

import ctypes
import os
import sys

vanoka = ctypes.CDLL(os.environ.get("VANOKA_LIBRARY", "libvanoka.so.1"))


class Item(ctypes.Structure):
    _fields_ = [("text", ctypes.c_char_p), ("size", ctypes.c_uint32), ("kind", ctypes.c_int32), ("number", ctypes.c_int64)]


vanoka.vanoka_answer_items.restype = ctypes.POINTER(Item)
INSERT, OTHER_KEY, SPACE = 10, 0xFFFF, 49
answer, settings, typing, consumed = ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_void_p(), ctypes.c_int32()
vanoka.vanoka_answer_create(ctypes.byref(answer))
vanoka.vanoka_settings_create(ctypes.byref(settings))
vanoka.vanoka_typing_create(settings, ctypes.byref(typing))


def put_in():
    """What the answer says is to be put in; marked text would be shown under the caret meanwhile."""
    items = vanoka.vanoka_answer_items(answer)
    return items[0].text.decode() if items and items[0].kind == INSERT else ""


field = ""
for key in " ".join(sys.argv[1:]):
    vanoka.vanoka_typing_press(typing, SPACE if key == " " else OTHER_KEY, 0, key.encode(),
                               ctypes.c_size_t(len(key.encode())), ctypes.byref(consumed), answer)
    field += put_in() + ("" if consumed.value else key)
vanoka.vanoka_typing_end(typing, answer)
print(field + put_in())
