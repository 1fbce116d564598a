# Values as printed by a tool; revision "REVISION 01.201".
maker = Cinterion
name = MC55i
source = https://github.com/gammu/gammu/issues/689
phone = Cinterion: MC55i
network = 41007

AT+CGMI: Cinterion
AT+CGMM: MC55i
AT+CIMI: 410070000000000
AT+CGMR: REVISION 01.201
