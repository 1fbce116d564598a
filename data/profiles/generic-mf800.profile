# Names the chip maker; model is a bare number; prefix nested in the IMEI value; serial
# masked.
maker = (generic LTE stick)
name = MF800
source = project README on an MSM8916 stick
phone = Qualcomm: unnamed model

ATI0: Manufacturer: QUALCOMM INCORPORATED\nModel: 4094\nRevision: MF800_V2.0_21_V01R01B05  1  [Sep 07 2015 23:00:00]\nSVN: 01\nIMEI: +CGSN:000000000000000\n+GCAP: +CGSM
