"""Run by LibreOffice's Python (/usr/bin/python3 with python3-uno) against a running headless
office: prints as JSON what the Function Wizard shows of the KRT functions (name, description,
argument names and help, in the office's language) and the text of each formula typed into a
cell as a user types it, then closes the office.

    calc_procedura.py PIPE_NAME FORMULA..."""
import json
import sys
import time

import uno
from com.sun.star.beans import PropertyValue


def connetti(pipe):
    locale = uno.getComponentContext()
    risolutore = locale.ServiceManager.createInstanceWithContext("com.sun.star.bridge.UnoUrlResolver", locale)
    for _ in range(120):
        try:
            return risolutore.resolve("uno:pipe,name=%s;urp;StarOffice.ComponentContext" % pipe)
        except Exception:
            time.sleep(0.5)
    raise SystemExit("no office on pipe " + pipe)


def main():
    ctx = connetti(sys.argv[1])
    smgr = ctx.ServiceManager
    funzioni = {}
    descrizioni = smgr.createInstanceWithContext("com.sun.star.sheet.FunctionDescriptions", ctx)
    for i in range(descrizioni.getCount()):
        d = {p.Name: p.Value for p in descrizioni.getByIndex(i)}
        if d["Name"].startswith("KRT"):
            funzioni[d["Name"]] = {"description": d["Description"],
                                   "arguments": [[a.Name, a.Description, a.IsOptional] for a in d["Arguments"]]}
    desktop = smgr.createInstanceWithContext("com.sun.star.frame.Desktop", ctx)
    nascosto = PropertyValue()
    nascosto.Name, nascosto.Value = "Hidden", True
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


main()
