# Android modem port; names the chip maker, not the phone; echo on; model, revision and IMEI
# were overwritten by the poster.
maker = OnePlus
name = 7T Pro
source = Japanese blog post on AT commands
phone = Qualcomm: unnamed model

ATI0: Manufacturer: QUALCOMM INCORPORATED\nModel: 0000\nRevision: xxxxx\nSVN: 00\nIMEI: 00000\n+GCAP: +CGSM
