# ATI unanswered in the record; revision text repeats itself: "3UKP671M3V1.0.0B08
# 3UKP671M3V1.0.0B08 1  [Jan 07 2008 16:00:00]"; the source shows LF line ends and no reply
# prefix, so the framing is the usual one; serial masked.
maker = ZTE
name = MF622
source = ModemManager tests, device-id table in the modem-helpers test
phone = ZTE: MF622

AT+CGMI: ZTE INCORPORATED
AT+CGMM: MF622
AT+CGMR: 3UKP671M3V1.0.0B08 3UKP671M3V1.0.0B08 1  [Jan 07 2008 16:00:00]
