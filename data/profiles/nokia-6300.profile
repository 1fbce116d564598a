# Model answer seen to AT+GMM; echo on: command CR, then CR LF text CR LF, CR LF OK CR LF;
# default charset PCCP437.
maker = Nokia
name = 6300
source = Ubuntu Forums thread "Nokia 6300: Fetch SMS's" (2009-02-17), gnokii debug log
phone = Nokia: 6300

AT+CGMI: Nokia
AT+GMM: Nokia 6300
