# placeholder until the package is written
