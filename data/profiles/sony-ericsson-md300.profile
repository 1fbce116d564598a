# ATI is the bare model; ATI1 is the revision; the source shows LF line ends and no reply
# prefix, so the framing is the usual one; serial masked.
maker = Sony Ericsson
name = MD300
source = ModemManager tests, device-id table in the modem-helpers test
phone = Sony Ericsson: MD300

AT+CGMI: Sony Ericsson
AT+CGMM: MD300
ATI0: MD300
