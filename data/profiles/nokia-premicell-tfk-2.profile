# Values as printed by a tool which cuts the model at its buffer end; model text seems to
# start with a colon and a blank.
maker = Nokia
name = Premicell TFK-2
source = gnokii list archive December 2011, thread "Nokia Premicell" (blog.gmane.org/gmane.linux.drivers.gnokii/month=20111201)
phone = Nokia: Premicell TFK-2

AT+CGMI: Nokia Mobile Phones
AT+CGMM: : Nokia Cellular Data Adapter f
