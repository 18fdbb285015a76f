@echo off
rem Registers the component in this folder for the present user alone; no rights are needed.
regsvr32 /n /i:user "%~dp0Kelvane.dll"
