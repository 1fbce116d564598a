# Comma in the maker; colons and slashes inside the revision; ATI has a line without label;
# the source shows LF line ends and no reply prefix, so the framing is the usual one; serial
# masked.
maker = Sierra Wireless
name = USBConnect Mercury
source = ModemManager tests, device-id table in the modem-helpers test
phone = Sierra Wireless: USBConnect Mercury

AT+CGMI: Sierra Wireless, Inc.
AT+CGMM: C885
ATI0: Manufacturer: Sierra Wireless, Inc.\nModel: C885\nRevision: J1_0_1_26AP C:/WS/FW/J1_0_1_26AP/MSM7200A/SRC/AMSS 2009/01/30 07:58:06\nIMEI: 000000000000000\nIMEI SV: 6\nFSN: D000000000000\n3GPP Release 6\n+GCAP: +CGSM,+DS,+ES
