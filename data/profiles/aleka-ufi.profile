# Answers to AT+GMI and AT+GMM; generic model; revision "MSM7X27-02.02.03UFI  1  [Oct 29 2014
# 16:20:35]".
maker = Aleka
name = UFI stick
source = project notes
phone = Aleka: UFI stick

AT+GMI: ALEKA INCORPORATED
AT+GMM: HSPA Modem
AT+CGMR: MSM7X27-02.02.03UFI  1  [Oct 29 2014 16:20:35]
