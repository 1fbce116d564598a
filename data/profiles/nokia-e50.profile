# Slow start: the first reply line carries the echo of five queued commands (ATZ CR ATE1 CR
# AT+CMEE=1 CR AT+GMM CR AT+CGMM CR CR LF OK CR LF); later replies arrive late and without
# echo; the model text comes twice, for GMM and CGMM.
# Played: no echo, and two reads find nothing before an answer is there.
maker = Nokia
name = E50
source = gnokii-users list 2009-06, msg00037 (lists.nongnu.org/archive/html/gnokii-users/2009-06/msg00037.html)
phone = Nokia: E50
echo = off
delay = 300
pause = 0 2

AT+CGMM: Nokia E50
AT+GMM: Nokia E50
