# Model text is the documented AT+GMM example and holds the maker too; ATI seen without the i.
maker = Sony Ericsson
name = K750i
source = Developers guidelines AT commands June 2010 p.33 (manualshelf.com/manual/dcs/phfs-dw/user-guide-english/page-33.html); Ubuntu Forums wvdialconf output
phone = Sony Ericsson: K750i

AT+CGMM: Sony Ericsson K750i
ATI0: Sony Ericsson K750
