# Values as printed by a tool; AT+CGMR answers "REVISION 02.00"; unknown commands ERROR.
maker = Siemens
name = MC35i
source = https://github.com/gammu/gammu/issues/97; program header comment
phone = Siemens: MC35i

AT+CGMI: SIEMENS
AT+CGMM: MC35i
AT+CGMR: REVISION 02.00
