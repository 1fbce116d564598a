# Maker in mixed case with a comma; serial masked.
maker = Huawei
name = ME909s-120
source = two public pages; their addresses were not kept
phone = Huawei: unnamed model

ATI0: Manufacturer: Huawei Technologies Co., Ltd.\nModel: ME909s-120\nRevision: 11.617.15.00.00\nIMEI: 000000000000000\n+GCAP: +CGSM,+DS,+ES
