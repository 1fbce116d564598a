# Values as printed by a tool.
maker = ZTE
name = MF190
source = https://github.com/gammu/gammu/issues/151
phone = ZTE: MF190

AT+CGMI: ZTE CORPORATION
AT+CGMM: MF190
