# Names the chip maker, in mixed case without INCORPORATED; board name as model; empty IMEI.
maker = Foxconn
name = T99W175
source = public page; its address was not kept
phone = Qualcomm: unnamed model

ATI0: Manufacturer: Qualcomm\nModel: T99W175\nRevision: T99W175.F0.6.0.0.6.CC.005  1  [Oct 21 2021 10:00:00]\nIMEI:\n+GCAP: +CGSM
