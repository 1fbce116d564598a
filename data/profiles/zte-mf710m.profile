# Values as printed by a tool; a plain AT was answered by the echo and reply of an unrelated
# command ("ATE0+CPMS?").
maker = ZTE
name = MF710M
source = https://github.com/gammu/gammu/issues/907
phone = ZTE: MF710M
network = 26207
echo = off

AT+CGMM: MF710M
AT+CIMI: 262070000000000
AT:= ATE0+CPMS?\r\r\nOK\r\n
