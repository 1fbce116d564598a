# Model is a bare number; the source shows LF line ends and no reply prefix, so the framing is
# the usual one; serial masked.
maker = Qualcomm
name = Gobi 1000
source = ModemManager tests, device-id table in the modem-helpers test
phone = Qualcomm: Gobi 1000

AT+CGMI: QUALCOMM INCORPORATED
AT+CGMM: 88
ATI0: Manufacturer: QUALCOMM INCORPORATED\nModel: 88\nRevision: D1020-SUUAASFA-4352  1  [Apr 14 2008 18:00:00]\nIMEI: 000000000000000\n+GCAP: +CGSM,+DS
