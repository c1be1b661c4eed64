@echo off
rem Runs the tests of QBSettings on this machine. Creates the folder report, with report.txt, which has a line for each
rem test, and the output of each test program.
rem
rem check.cmd           The tests of the program's parts use a registry key of their own. The tests that start the program
rem                     use the machine's settings. If there are any, these tests refuse to run, and count as failed.
rem check.cmd /destroy  All tests run. The settings are exported to the folder, deleted, and imported at the end.
setlocal
cd /d "%~dp0"
set REG=%SystemRoot%\System32\reg.exe
set FIND=%SystemRoot%\System32\find.exe
if exist report (
    echo The folder "report" of an earlier run exists. Move it to another place, and start again.
    exit /b 1
)
%REG% add HKLM\SOFTWARE /f >nul 2>&1
if errorlevel 1 (
    echo The tests need administrator rights. Start check.cmd from an administrator's prompt.
    exit /b 1
)
mkdir report
set QB_DESTROY=
if /i not "%~1"=="/destroy" goto run
call :export HKLM\SOFTWARE\Halvane halvane
if errorlevel 1 exit /b 1
call :export HKLM\SOFTWARE\Ostrel ostrel
if errorlevel 1 exit /b 1
call :export HKLM\System\CurrentControlSet\SERVICES\xHCIPort\Parameters xhciport
if errorlevel 1 exit /b 1
set QB_DESTROY=1

:run
echo Do not use the keyboard or the mouse. The tests use them, and take some minutes.
call :program qbsettings_tests.exe
call :program qbsettings_journeys.exe
del report\lines.txt
for %%F in (report\*.reg) do call :import %%F
set COUNT_OK=0
set COUNT_FAILED=0
set COUNT_SKIPPED=0
for /f "tokens=1 delims=[] " %%R in (report\report.txt) do set /a COUNT_%%R+=1 >nul
echo %COUNT_OK% passed, %COUNT_FAILED% failed, %COUNT_SKIPPED% skipped>>report\report.txt
type report\report.txt
if not "%COUNT_FAILED%"=="0" exit /b 1
exit /b 0

rem Only the last line of a test has a time in parentheses. The file can be in use for a moment after the program has ended.
:program
%1 >report\%1.txt 2>&1
set CODE=%errorlevel%
set TRIES=0
:lines
set /a TRIES+=1 >nul
%FIND% " ms)" <report\%1.txt >report\lines.txt
set LINES=
for /f %%L in (report\lines.txt) do set LINES=1
if not defined LINES if %TRIES% lss 50 goto lines
type report\lines.txt >>report\report.txt
if "%CODE%"=="0" if defined LINES exit /b 0
%FIND% "[  FAILED  ]" <report\lines.txt >nul
if errorlevel 1 echo [  FAILED  ] %1 ended with %CODE%, and its tests have not all run. See %1.txt>>report\report.txt
exit /b 0

:export
%REG% query %1 >nul 2>&1
if errorlevel 1 exit /b 0
%REG% export %1 report\%2.reg /y >nul
if not errorlevel 1 exit /b 0
echo %1 could not be exported. No settings were deleted, and no tests were run.
exit /b 1

:import
%REG% import %1 >nul 2>&1
if errorlevel 1 echo [  FAILED  ] The settings in %1 could not be imported. Import them by hand.>>report\report.txt
exit /b 0
