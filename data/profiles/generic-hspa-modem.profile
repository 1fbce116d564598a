# Names the chip maker; prefix without blank nested in the model and the revision; serial
# masked.
maker = (3G stick)
name = HSPA MODEM
source = public page; its address was not kept
phone = Qualcomm: unnamed model

ATI0: Manufacturer: QUALCOMM INCORPORATED\nModel: +CGMM:HSPA MODEM\nRevision: +CGMR:V1.2\nIMEI: 000000000000000\n+GCAP: +CGSM,+DS,+ES
