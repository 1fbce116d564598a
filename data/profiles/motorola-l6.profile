# Prefix and quotes; model only in the last of several quoted bands; echo on (command CR CR
# LF); unsolicited line "+MBAN: Copyright 2000-2002 Motorola, Inc." CR LF comes before the
# echo of the next command; extended commands only after AT+MODE=2.
maker = Motorola
name = L6
source = Ubuntu Forums thread "Wammu error 27 with Motorola L6" (2007-12-09)
phone = Motorola: L6

AT+CGMI: +CGMI: "Motorola CE, Copyright 2000"
AT+CGMM: +CGMM: "GSM900","GSM1800","GSM1900","MODEL=L6"
AT+CGMM:< +MBAN: Copyright 2000-2002 Motorola, Inc.
AT+MODE=2: OK
