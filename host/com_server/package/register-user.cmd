@echo off
rem Registers the component in this folder for the present user alone; no rights are needed.
call "%~dp0registration.cmd" /n /i:user
