# Comma in the maker; extra MEID line; serial masked.
maker = Sierra Wireless
name = EM7455B
source = public page; its address was not kept
phone = Sierra Wireless: unnamed model

ATI0: Manufacturer: Sierra Wireless, Incorporated\nModel: EM7455B\nRevision: SWI9X30C_02.24.05.06 r7040 CARMD-EV-FRMWR2 2017/05/19 06:23:09\nMEID: 00000000000000\nIMEI: 000000000000000\nIMEI SV: 12\nFSN: LF000000000000\n+GCAP: +CGSM
