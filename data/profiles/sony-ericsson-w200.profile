# One-line ATI with maker and model; two ACM ports, the first busy.
maker = Sony Ericsson
name = W200
source = Ubuntu Forums wvdialconf output
phone = Sony Ericsson: W200

ATI0: Sony Ericsson W200
