# Values as printed by a tool; maker printed as Nokia, raw text not visible; revision "V
# 05.60,17-11-06".
maker = Nokia
name = 6133
source = https://github.com/gammu/gammu/issues/57
phone = Nokia: 6133

AT+CGMM: Nokia 6133
AT+CGMR: V 05.60,17-11-06
