# One-line ATI with maker and model, here with the i; answers only from 19200 baud up.
maker = Sony Ericsson
name = M600i
source = Ubuntu Forums wvdialconf output
phone = Sony Ericsson: M600i

ATI0: Sony Ericsson M600i
