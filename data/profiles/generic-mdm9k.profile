# Names the chip maker; the model is a single 0, which names none; serial masked.
maker = (LTE laptop modem)
name = MDM9K
source = public page; its address was not kept
phone = Qualcomm: unnamed model

AT+CGMI: QUALCOMM INCORPORATED
AT+CGMM: 0
ATI0: Manufacturer: QUALCOMM INCORPORATED\nModel: 0\nRevision: MDM9K-CIGO-U-7.3.9-4M  1  [Jan 19 2012 21:00:00]\nSVN: 00\nIMEI: 000000000000000\n+GCAP: +CGSM
