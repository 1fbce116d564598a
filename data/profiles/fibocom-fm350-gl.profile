# No blank after the colon; numeric form +COPS:0,2,"25001",7; blank line between the two
# replies of a combined command.
maker = Fibocom
name = FM350-GL
source = https://github.com/4IceG/luci-app-3ginfo-lite/issues/73
network = MTS RUS
undetectable = no answer that names the phone was recorded

AT+COPS?: +COPS:0,0,"MTS RUS",7
