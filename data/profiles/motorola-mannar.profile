# Android modem port; names the phone maker, the model is the chip number; serial masked.
maker = Motorola
name = Android phone (MANNAR)
source = public page; its address was not kept
phone = Motorola: unnamed model

ATI0: Manufacturer: Motorola Mobility\nModel: 334\nRevision: MPSS.HI.4.3.4-00494-MANNAR_GEN_PACK-1.24452.133  1  [Sep 13 2024]\nIMEI: 000000000000000
