# The maker reply is the placeholder word Manufacturer; generic model; the source shows LF
# line ends and no reply prefix, so the framing is the usual one; serial masked.
maker = Zoom
name = 4596
source = ModemManager tests, device-id table in the modem-helpers test
phone = Zoom: 4596

AT+CGMI: Manufacturer
AT+CGMM: HSPA USB MODEM
ATI0: Manufacturer: Manufacturer\nModel: HSPA USB MODEM\nRevision: LQA0021.1.1_M573A\nIMEI: 000000000000000\n+GCAP: +CGSM,+FCLASS,+DS
