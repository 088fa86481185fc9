# The Calc add-in: the functions KRTENCODE, KRTENTRY, KRTHRC, KRTGS1, KRTISBN and KRTWHY
# (names, descriptions and argument help in CalcAddIns.xcu). The work is in krtcalc
# (pythonpath/); here a refusal becomes the IllegalArgumentException that Calc shows as an
# error value, and the office's language chooses the language of KRTWHY's reasons.
import unohelper
from com.sun.star.lang import IllegalArgumentException, Locale, XLocalizable, XServiceInfo, XServiceName
from org.krt.calc import XFunzioni

import krtcalc

NOME_IMPLEMENTAZIONE = "org.krt.calc.Funzioni"
SERVIZI = ("com.sun.star.sheet.AddIn", "org.krt.calc.Funzioni")


class Funzioni(unohelper.Base, XFunzioni, XLocalizable, XServiceName, XServiceInfo):
    def __init__(self, ctx, *args):
        self.ctx = ctx
        self.locale = Locale("en", "US", "")

    def _esegui(self, funzione, *argomenti):
        try:
            return funzione(*argomenti)
        except krtcalc.Rifiutato as e:
            raise IllegalArgumentException(str(e), self, 0)

    def krtencode(self, symbology, content, check, symbol):
        return self._esegui(krtcalc.krtencode, symbology, content, check, symbol)

    def krtentry(self, entry, content, check, hrc, symbol):
        return self._esegui(krtcalc.krtentry, entry, content, check, hrc, symbol)

    def krthrc(self, entry, content, check):
        return self._esegui(krtcalc.krthrc, entry, content, check)

    def krtgs1(self, text, symbol):
        return self._esegui(krtcalc.krtgs1, text, symbol)

    def krtisbn(self, text):
        return self._esegui(krtcalc.krtisbn, text)

    def krtwhy(self, symbology, content, check):
        return krtcalc.krtwhy(symbology, content, check, self.locale.Language == "it")

    # XLocalizable: Calc passes the office's language.
    def setLocale(self, locale):
        self.locale = locale

    def getLocale(self):
        return self.locale

    # XServiceName, XServiceInfo
    def getServiceName(self):
        return NOME_IMPLEMENTAZIONE

    def getImplementationName(self):
        return NOME_IMPLEMENTAZIONE

    def supportsService(self, nome):
        return nome in SERVIZI

    def getSupportedServiceNames(self):
        return SERVIZI


g_ImplementationHelper = unohelper.ImplementationHelper()
g_ImplementationHelper.addImplementation(Funzioni, NOME_IMPLEMENTAZIONE, SERVIZI)
