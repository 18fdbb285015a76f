"""Opens a database document of LibreOffice Base and a table of it, as soon as the program takes orders.

  base_window.py TABLE DOCUMENT SOFFICE...
"""
import os
import subprocess
import sys
import time
from pathlib import Path

import uno
from com.sun.star.beans import PropertyValue
from com.sun.star.connection import NoConnectException
from com.sun.star.sdb.application.DatabaseObject import TABLE


def connect(pipe):
    local = uno.getComponentContext()
    resolver = local.ServiceManager.createInstance("com.sun.star.bridge.UnoUrlResolver")
    while True:
        try:
            return resolver.resolve(f"uno:pipe,name={pipe};urp;StarOffice.ComponentContext")
        except NoConnectException:
            time.sleep(0.005)


def main():
    table, document, *office = sys.argv[1:]
    pipe = f"peers{os.getpid()}"
    running = subprocess.Popen([*office, "--nodefault", f"--accept=pipe,name={pipe};urp"])
    context = connect(pipe)
    desktop = context.ServiceManager.createInstanceWithContext("com.sun.star.frame.Desktop", context)
    # Else it may wait for itself: the windows belong to the thread that shows them.
    by_windows = PropertyValue()
    by_windows.Name, by_windows.Value = "OnMainThread", True
    opened = desktop.loadComponentFromURL(Path(document).as_uri(), "_blank", 0, (by_windows,))
    controller = opened.CurrentController
    controller.connect()
    controller.loadComponent(TABLE, table, False)
    running.wait()


if __name__ == "__main__":
    main()
