# CDMA phone; prefix is the +G form, also where the page lists it under AT+CGMM.
maker = Samsung
name = SCH-A670
source = forensics wiki page on AT commands
phone = Samsung: SCH-A670

AT+CGMI: +GMI: SAMSUNG
AT+CGMM: +GMM: SCH-A670
