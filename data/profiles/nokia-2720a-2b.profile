# Over Bluetooth; ATI gives only the maker, ATI1 the IMEI; AT+CGMR answers four lines, the
# last padded with blanks: "V 08.62", "24-07-09", "RM-520", "(c) Nokia            "; the
# source shows LF line ends and no reply prefix, so the framing is the usual one; serial
# masked.
maker = Nokia
name = 2720a-2b
source = ModemManager tests, device-id table in the modem-helpers test
phone = Nokia: 2720a-2b

AT+CGMI: Nokia
AT+CGMM: Nokia 2720a-2b
ATI0: Nokia
AT+CGMR: V 08.62\n24-07-09\nRM-520\n(c) Nokia           \x20
