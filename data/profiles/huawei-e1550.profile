# Maker in lower case; the source shows LF line ends and no reply prefix, so the framing is
# the usual one; serial masked.
maker = Huawei
name = E1550
source = ModemManager tests, device-id table in the modem-helpers test
phone = Huawei: E1550

AT+CGMI: huawei
AT+CGMM: E1550
ATI0: Manufacturer: huawei\nModel: E1550\nRevision: 11.608.09.01.21\nIMEI: 000000000000000\n+GCAP: +CGSM,+FCLASS,+DS
