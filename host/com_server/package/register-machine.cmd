@echo off
rem Registers the component in this folder for every user of this machine. Run it as administrator.
call "%~dp0registration.cmd"
