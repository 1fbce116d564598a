# SPDX-License-Identifier: MIT
"""A host in Python: detect_host.py CATALOGUE DEVICE prints the settings that fit the phone."""
import ctypes, os, select, sys, tty
from ctypes import POINTER, c_char, c_char_p, c_int32, c_long

TEXTS = ("InitializationString DialString Dns1 Dns2 GatewayIP APN DisplayName ClientIP ContractType "
         "RequiresUser DefaultUser DefaultPassword Default Country").split()


class Setting(ctypes.Structure):
    _fields_ = [(name, c_char * 256) for name in TEXTS] + [("aBasicDUNSettingId", c_int32)]


# The library calls these objects: they have to live as long as the session.
@ctypes.CFUNCTYPE(c_long, POINTER(c_char), c_long, c_long)
def read_byte(buffer, count, timeout):
    ready, _, _ = select.select([device], [], [], 1 if timeout < 0 else timeout / 1000)
    byte = os.read(device, 1) if ready else b""
    buffer[0] = byte or b"\0"
    return len(byte)


@ctypes.CFUNCTYPE(c_long, POINTER(c_char), c_long)
def send_command(buffer, length):
    return os.write(device, buffer[:length])


def function(name, *arguments):
    found = getattr(velmor, name)
    found.argtypes, found.restype = arguments, c_long
    return found


device = os.open(sys.argv[2], os.O_RDWR | os.O_NOCTTY)
tty.setraw(device)
for command in b"AT\r", b"ATE1\r", b"AT+CMEE=0\r":  # then until the phone is silent
    os.write(device, command)
    while select.select([device], [], [], 0.3)[0] and os.read(device, 1):
        pass
velmor = ctypes.CDLL("libvelmor.so.1")
initialise = function("Velmor_Initialise", c_char_p, type(read_byte), type(send_command))
detect = function("Velmor_DetectPhoneAndNetwork", c_long, c_char_p, c_long, c_char_p, c_long)
count_settings = function("Velmor_GetNrDetectedDUNSettings", c_long, POINTER(c_long))
get_setting = function("Velmor_GetDetectedDUNSettingByIndex", c_long, c_long, POINTER(Setting))
if initialise(os.fsencode(sys.argv[1]), read_byte, send_command) != 0:
    sys.exit("no usable catalogue")
maker, model = ctypes.create_string_buffer(64), ctypes.create_string_buffer(64)
result = detect(0, maker, 64, model, 64)
print("the phone says:", maker.value.decode(errors="replace"), model.value.decode(errors="replace"))
count, setting = c_long(), Setting()
count_settings(0, count)
for index in range(count.value):
    ready = get_setting(0, index, setting) == 0
    print(setting.DisplayName.decode(errors="replace"), "ready to dial" if ready else "not known")
    print(setting.InitializationString, setting.DialString)
velmor.Velmor_DeInitialise()
sys.exit(result != 0)
