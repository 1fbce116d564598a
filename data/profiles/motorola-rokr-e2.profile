# Quoted texts; ATI unanswered in the record; IMEI and revision quoted too; the source shows
# LF line ends and no reply prefix, so the framing is the usual one; serial masked.
maker = Motorola
name = ROKR E2
source = ModemManager tests, device-id table in the modem-helpers test
phone = Motorola: ROKR E2

AT+CGMI: "Motorola"
AT+CGMM: "E2"
