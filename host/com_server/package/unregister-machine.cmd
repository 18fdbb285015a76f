@echo off
rem Takes back what register-machine.cmd did. Run it as administrator.
call "%~dp0registration.cmd" /u
