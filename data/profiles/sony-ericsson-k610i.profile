# Type code instead of a model name; values as printed by a tool; revision "R1KG001 070418
# 2238".
maker = Sony Ericsson
name = K610i
source = Ubuntu Forums thread "Gnome Phone Manager" (2008-07-04), gnokii --identify
phone = Sony Ericsson: K610i

AT+CGMI: Sony Ericsson
AT+CGMM: AAD-3022041-BV
AT+CGMR: R1KG001 070418 2238
