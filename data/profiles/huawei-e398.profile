# Maker in lower case; serial masked.
maker = Huawei
name = E398
source = public page; its address was not kept
phone = Huawei: unnamed model

ATI0: Manufacturer: huawei\nModel: E398\nRevision: 11.126.16.00.00\nIMEI: 000000000000000\n+GCAP: +CGSM,+DS,+ES
