# Command sent with LF CR: full information text, then two CR LF and ERROR instead of OK;
# serials masked.
maker = Sierra Wireless
name = MC8790
source = libqmi-devel list 2017-04 message 002343 (lists.freedesktop.org/archives/libqmi-devel/2017-April/002343.html)
undetectable = the text of ATI ends in ERROR, and an answer that ends so is dropped as a whole

ATI0:= \r\nManufacturer: Sierra Wireless, Inc.\r\nModel: MC8790\r\nRevision: K1_0_2_8AP C:/WS/FW/K1_0_2_8AP/MSM6290/SRC 2008/09/17 14:00:22\r\nIMEI: 000000000000000\r\nIMEI SV: 3\r\nFSN: D000000000000\r\n3GPP Release 6\r\n+GCAP: +CGSM,+DS,+ES\r\n\r\nERROR\r\n
