# CDMA; label in capitals; only the first line of the ATI reply is shown by the source.
maker = C-Motech (Franklin)
name = CDU-680
source = Ubuntu Forums thread "EVDO (CDU-680) Need read/write permissions" (2007-11-05)
phone = C-Motech: unnamed model

ATI0: MANUFACTURER: C-MOTECH Co., Ltd.
