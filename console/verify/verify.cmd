@echo off
rem Runs the tests and the sessions of Maker Checker and writes verify-report.html beside this file.
rem With names of suites or sessions behind it, only these, and nothing is waited for.
cd /d "%~dp0"
if not "%~1"=="" goto some
echo The tests move the mouse, type and use the clipboard. Please leave the computer alone
echo until they have ended, and do not lock it. Your settings of Maker Checker are put aside
echo meanwhile.
pause
"%~dp0verify.exe"
start "" verify-report.html
echo Please send verify-report.html back.
pause
exit /b
:some
"%~dp0verify.exe" %*
