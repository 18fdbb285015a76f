@echo off
rem Registers the component in this folder for every user of this machine. Run it as administrator.
regsvr32 "%~dp0Kelvane.dll"
