# SPDX-License-Identifier: MIT
"""A host in Python: detect_host.py CATALOGUE DEVICE prints the settings that fit the phone."""
import ctypes, os, select, sys, time, tty
from ctypes import POINTER, c_char, c_char_p, c_int32, c_long

TEXTS = ("InitializationString DialString Dns1 Dns2 GatewayIP APN DisplayName ClientIP ContractType "
         "RequiresUser DefaultUser DefaultPassword Default Country").split()


class Setting(ctypes.Structure):
    _fields_ = [(name, c_char * 256) for name in TEXTS] + [("aBasicDUNSettingId", c_int32)]


def receive(seconds):
    return os.read(device, 1) if select.select([device], [], [], seconds)[0] else b""


# The library calls these objects: they have to live as long as the session. It reads what the filter gives.
@ctypes.CFUNCTYPE(c_long, POINTER(c_char), c_long, c_long)
def read_byte(buffer, count, timeout):
    while line.VelmorLine_Give(line_filter, buffer, c_long(count)) == 0:
        byte = receive(1 if timeout < 0 else timeout / 1000)
        if byte:
            line.VelmorLine_Take(line_filter, byte, c_long(1))
        elif line.VelmorLine_Silent(line_filter) == 0:
            return 0
    return 1


@ctypes.CFUNCTYPE(c_long, POINTER(c_char), c_long)
def send_command(buffer, length):
    line.VelmorLine_Command(line_filter, buffer, c_long(length))
    return os.write(device, buffer[:length])


def ask(command):
    """The answer to a command, up to a silence: a late answer must not be taken for the next one."""
    os.write(device, command + b"\r")
    answer = byte = receive(2)
    while byte:
        byte = receive(0.3)
        answer += byte
    return answer


def prepare():
    """Makes the phone quiet, and waits until it has read its card."""
    answer = b""
    line.VelmorLine_StartPreparation(preparation, c_long(0))
    while command := line.VelmorLine_Prepare(preparation, answer, c_long(len(answer))):
        answer = ask(command)
    ask(b"AT+CMEE=1")  # errors with numbers: busy is one of them
    waited, wait = 0, 1
    while wait > 0:
        answer = ask(b"AT+CPIN?")
        wait = line.VelmorLine_WaitForCard(answer, c_long(len(answer)), c_long(waited))
        time.sleep(wait / 1000)
        waited += wait
    ask(b"AT+CMEE=0")


def function(name, *arguments):
    found = getattr(velmor, name)
    found.argtypes, found.restype = arguments, c_long
    return found


device = os.open(sys.argv[2], os.O_RDWR | os.O_NOCTTY)
tty.setraw(device)
line = ctypes.CDLL("libvelmor-line.so.1")
for name in "Give Take Silent WaitForCard".split():
    getattr(line, "VelmorLine_" + name).restype = c_long
line.VelmorLine_Prepare.restype = line.VelmorLine_Restore.restype = c_char_p
line_filter, preparation = ctypes.create_string_buffer(1024), ctypes.create_string_buffer(128)
line.VelmorLine_Start(line_filter)
ask(b"AT")  # the first answer of some phones is late or noisy
prepare()
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
while command := line.VelmorLine_Restore(preparation):
    ask(command)
velmor.Velmor_DeInitialise()
sys.exit(result != 0)
