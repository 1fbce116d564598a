# Answer to ATI3; serial masked.
maker = Novatel
name = EU870D (Dell)
source = public page; its address was not kept
phone = Novatel: unnamed model

ATI3: Manufacturer: Novatel Wireless Incorporated\nModel: Expedite EU870D MiniCard\nRevision: 10.9.0102.0-00  [2007-07-03 13:50:21]\nIMEI: 000000000000000\n+GCAP: +CGSM,+DS
