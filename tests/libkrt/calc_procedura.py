"""Run by LibreOffice's Python (/usr/bin/python3 with python3-uno) against a running headless office:
prints as JSON what the Function Wizard shows of the KRT functions (description, argument names and
help, in the office's language) and the text of each formula typed into a cell, then closes the office.

    calc_procedura.py PIPE_NAME FORMULA..."""
import json
import sys
import time

import uno
from com.sun.star.beans import PropertyValue

locale = uno.getComponentContext()
risolutore = locale.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", locale)
for _ in range(120):
    try:
        ctx = risolutore.resolve("uno:pipe,name=%s;urp;StarOffice.ComponentContext" % sys.argv[1])
        break
    except Exception:
        time.sleep(0.5)
else:
    raise SystemExit("no office on pipe " + sys.argv[1])
descrizioni = ctx.ServiceManager.createInstanceWithContext("com.sun.star.sheet.FunctionDescriptions", ctx)
funzioni = {}
for d in (dict((p.Name, p.Value) for p in descrizioni.getByIndex(i)) for i in range(descrizioni.getCount())):
    if d["Name"].startswith("KRT"):
        funzioni[d["Name"]] = {"description": d["Description"], "arguments": [[a.Name, a.Description] for a in d["Arguments"]]}
desktop = ctx.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", ctx)
nascosto = PropertyValue("Hidden", 0, True, 0)
documento = desktop.loadComponentFromURL("private:factory/scalc", "_blank", 0, (nascosto,))
cella = documento.Sheets.getByIndex(0).getCellByPosition(0, 0)
celle = []
for formula in sys.argv[2:]:
    cella.FormulaLocal = formula
    celle.append(cella.String)
documento.close(True)
print(json.dumps({"functions": funzioni, "cells": celle}))
try:
    desktop.terminate()
except Exception:
    pass
