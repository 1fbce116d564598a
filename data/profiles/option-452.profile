# Model with blanks; ATI1 same as ATI; the source shows LF line ends and no reply prefix, so
# the framing is the usual one; serial masked.
maker = Option
name = 452 (GlobeTrotter HSUPA)
source = ModemManager tests, device-id table in the modem-helpers test
phone = Option: GlobeTrotter HSUPA

AT+CGMI: Option N.V.
AT+CGMM: GlobeTrotter HSUPA Modem
ATI0: Manufacturer: Option N.V.\nModel: GlobeTrotter HSUPA Modem\nRevision: 2.12.0.0Hd (Date: Oct 29 2009, Time: 09:56:48)
