# One-line ATI with maker and model.
maker = Sony Ericsson
name = K850
source = Ubuntu Forums wvdialconf output
phone = Sony Ericsson: K850

ATI0: Sony Ericsson K850
