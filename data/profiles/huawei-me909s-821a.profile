# Maker in mixed case with a comma; serial masked.
maker = Huawei
name = ME909s-821a
source = public page; its address was not kept
phone = Huawei: unnamed model

ATI0: Manufacturer: Huawei Technologies Co., Ltd.\nModel: ME909s-821a\nRevision: 11.617.12.00.00\nIMEI: 000000000000000\n+GCAP: +CGSM,+DS,+ES
