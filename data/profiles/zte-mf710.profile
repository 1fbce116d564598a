# Prefix on the maker; model as printed by a tool; echo on; unknown commands +CME ERROR: 100.
maker = ZTE
name = MF710
source = https://github.com/gammu/gammu/issues/560
phone = ZTE: MF710
unknown = +CME ERROR: 100

AT+CGMI: +CGMI: ZTE CORPORATION
AT+CGMM: MF710
