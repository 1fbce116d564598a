# AT+GMM answers "Gipsy Soft Protocolstack" (no phone model) and AT+GMR "V2.550"; AT+CGMR is
# the bare number 21.
maker = Siemens
name = S45
source = sample replies in a comment of an OBEX cable tool
phone = Siemens: S45

AT+CGMI: SIEMENS
AT+CGMM: S45
AT+GMM: Gipsy Soft Protocolstack
AT+GMR: V2.550
AT+CGMR: 21
