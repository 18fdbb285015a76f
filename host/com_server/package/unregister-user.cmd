@echo off
rem Takes back what register-user.cmd did.
regsvr32 /u /n /i:user "%~dp0Kelvane.dll"
