@echo off
rem Tries the component on this machine, and writes down what happened:
rem   trial.cmd "CONNECTIONSTRING" YEAR REPORTFOLDER
rem CONNECTIONSTRING is ADO's for a copy of an account, and YEAR the account's. Register the component
rem first. The entry list opens three times: look at it, and close it.
setlocal
if "%~3" == "" (
    echo usage: trial.cmd "CONNECTIONSTRING" YEAR REPORTFOLDER
    exit /b 2
)

rem The script host of the component's width.
set scripthost=%windir%\System32\cscript.exe
if "@ARCHITECTURE@" == "x86" if exist "%windir%\SysWOW64\cscript.exe" set scripthost=%windir%\SysWOW64\cscript.exe
if "@ARCHITECTURE@" == "amd64" if exist "%windir%\Sysnative\cscript.exe" set scripthost=%windir%\Sysnative\cscript.exe

"%scripthost%" //nologo "%~dp0trial.vbs" "%~f3\trial.txt" "%~1" "%~dp0.." %~2 init show show init show use rounds=100 use rounds=100 use
"%scripthost%" //nologo "%~dp0data-access.vbs" "%~f3\data-access.txt" "%~1" "%~1;Server=127.0.0.1,1;Connect Timeout=5"
echo The reports: "%~f3"
