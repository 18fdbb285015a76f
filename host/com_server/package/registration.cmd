@echo off
rem Does the work of the scripts beside it:
rem   registration.cmd OPTIONS
rem OPTIONS are those of the system's registrar. Registering warns when this folder is open to all:
rem what lies in it runs in the name of everybody who uses the component.
setlocal

rem The registrar of the component's width, from the system's folder and nowhere else.
set "registrar=%SystemRoot%\System32\regsvr32.exe"
if "@ARCHITECTURE@" == "x86" if exist "%SystemRoot%\SysWOW64\regsvr32.exe" set "registrar=%SystemRoot%\SysWOW64\regsvr32.exe"
if "@ARCHITECTURE@" == "amd64" if exist "%SystemRoot%\Sysnative\regsvr32.exe" set "registrar=%SystemRoot%\Sysnative\regsvr32.exe"

if "%~1" == "/u" goto run
rem Everyone, authenticated users and users, by identities, as their names are the system's language:
rem may one of them write, delete or take over here? 3 means yes.
set "inspector=%SystemRoot%\System32\WindowsPowerShell\v1.0\powershell.exe"
set "folder=%~dp0."
if not exist "%inspector%" goto run
"%inspector%" -NoProfile -NonInteractive -Command "$all = 'S-1-1-0', 'S-1-5-11', 'S-1-5-32-545'; $open = (Get-Acl -LiteralPath $env:folder).GetAccessRules($true, $true, [Security.Principal.SecurityIdentifier]) | Where-Object { $all -contains $_.IdentityReference.Value -and $_.AccessControlType -eq 'Allow' -and -not ([int]$_.PropagationFlags -band 2) -and ([int]$_.FileSystemRights -band 0x500D0042) }; if ($open) { exit 3 }" <nul >nul 2>nul
if %errorlevel% == 3 echo Warning: every user of this machine may write to "%~dp0". Move the component to a folder that only administrators may write to.

:run
"%registrar%" %* "%~dp0Kelvane.dll"
