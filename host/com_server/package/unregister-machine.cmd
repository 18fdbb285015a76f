@echo off
rem Takes back what register-machine.cmd did. Run it as administrator.
regsvr32 /u "%~dp0Kelvane.dll"
