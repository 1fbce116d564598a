# Type code instead of a model name; ATI names W580 without the i; ATI1 answers CXC1123481;
# the source shows LF line ends and no reply prefix, so the framing is the usual one; serial
# masked.
maker = Sony Ericsson
name = W580i
source = ModemManager tests, device-id table in the modem-helpers test
phone = Sony Ericsson: W580i

AT+CGMI: Sony Ericsson
AT+CGMM: AAC-1052042-BV
ATI0: Sony Ericsson W580
ATI1: CXC1123481
