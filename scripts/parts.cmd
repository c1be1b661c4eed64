@echo off
rem What save.cmd and restore.cmd share. They call it from this folder, and the values' names stand beside it in values.txt:
rem a key and its values in each line, or a key and * for a table of ports, which is the editor's as a whole.
rem
rem No command copies one value with its type and bytes. So whole keys are copied to a scratch key, and what belongs to
rem other programs is taken out there. A key that is copied to where it came from leaves all other values alone.
goto :%1

:ready
set "REG=%SystemRoot%\System32\reg.exe"
set "TASKLIST=%SystemRoot%\System32\tasklist.exe"
rem A prompt of 32 bits has another System32, whose reg sees another registry.
if defined PROCESSOR_ARCHITEW6432 set "REG=%SystemRoot%\Sysnative\reg.exe"
if defined PROCESSOR_ARCHITEW6432 set "TASKLIST=%SystemRoot%\Sysnative\tasklist.exe"
set SAVED=HKLM\SOFTWARE\QBSettings.saved
set WANTED=HKLM\SOFTWARE\QBSettings.wanted
set OTHERS=HKLM\SOFTWARE\QBSettings.others
set WHOLE=HKLM\SOFTWARE\QBSettings.whole

set MACHINE=unknown
for /f "tokens=1-3" %%A in ('%REG% query HKLM\SOFTWARE\Microsoft\Cryptography /v MachineGuid') do (
    if "%%A"=="MachineGuid" set "MACHINE=%%C"
)
set LIST=
for /f "tokens=1,2" %%A in (values.txt) do if "%%A"=="#end" set "LIST=%%B"
if not defined LIST (
    echo values.txt beside this script is missing or cut off. Unpack the whole package again.
    exit /b 1
)
set LISTED=
set OPEN=
for /f "delims=," %%P in ('%TASKLIST% /fo csv /nh') do (
    set LISTED=1
    if /i "%%~P"=="QBSettings.exe" set OPEN=1
)
if defined OPEN (
    echo QBSettings is open. Close it, and try again.
    exit /b 1
)
if not defined LISTED (
    echo tasklist does not tell whether QBSettings is open. Try again when it lists what runs.
    exit /b 1
)
%REG% add %SAVED% /f >nul 2>&1
if errorlevel 1 (
    echo This needs an administrator's prompt: start cmd with "Run as administrator".
    exit /b 1
)
%REG% delete %SAVED% /f >nul
exit /b 0

rem Puts what the editor stores, and nothing else, into the scratch key SAVED, by way of a file in the folder TARGET.
rem Reports it if the second argument says so.
:take
set "REPORT=%2"
%REG% delete %SAVED% /f >nul 2>&1
set FAILED=
for /f "eol=# tokens=1,*" %%K in (values.txt) do (
    set "NAMES=%%L"
    if not defined FAILED call :key %%K
    if errorlevel 1 set FAILED=1
)
if defined FAILED exit /b 1
exit /b 0

:key
if defined REPORT echo HKLM\%1
if "%NAMES%"=="*" goto :table
rem The scratch key is there in any case, so that two states differ in values alone.
call :fresh %SAVED%\Values\%1
if errorlevel 1 exit /b 1
set "MISSING= %NAMES%"
%REG% query HKLM\%1 >nul 2>&1
if errorlevel 1 goto :report
call :fresh %OTHERS%
if errorlevel 1 exit /b 1
call :fresh %WHOLE%
if errorlevel 1 exit /b 1
%REG% copy HKLM\%1 %SAVED%\Values\%1 /f >nul
if errorlevel 1 exit /b 1
%REG% copy %SAVED%\Values\%1 %OTHERS% /f >nul
if errorlevel 1 exit /b 1
call :forget HKEY_LOCAL_MACHINE\SOFTWARE\QBSettings.others
if errorlevel 1 exit /b 1
%REG% copy %OTHERS% %WHOLE% /f >nul
if errorlevel 1 exit /b 1
rem What is left is of other programs. Each line of a value is tried as a name of one to six words: the editor's values are
rem no longer there to be hit by a text that looks like one of them.
%REG% delete %OTHERS% /ve /f >nul 2>&1
if not errorlevel 1 %REG% delete %SAVED%\Values\%1 /ve /f >nul
for /f "tokens=1-6" %%A in ('%REG% query %OTHERS%') do (
    if not "%%B"=="" for %%V in ("%%A" "%%A %%B" "%%A %%B %%C" "%%A %%B %%C %%D" "%%A %%B %%C %%D %%E" "%%A %%B %%C %%D %%E %%F") do (
        %REG% delete %OTHERS% /v %%V /f <nul >nul 2>&1
        if not errorlevel 1 %REG% delete %SAVED%\Values\%1 /v %%V /f <nul >nul
    )
)
rem Only a value has a second word in its line.
set LEFT=
for /f "tokens=2" %%L in ('%REG% query %OTHERS%') do set LEFT=1
if defined LEFT (
    echo HKLM\%1 has a value of another program that these commands cannot name. Save that key with regedit.
    exit /b 1
)
rem Both parts together are what is there, or something was missed.
%REG% copy %SAVED%\Values\%1 %WHOLE% /f >nul
if errorlevel 1 exit /b 1
%REG% copy HKLM\%1 %OTHERS% /f >nul
if errorlevel 1 exit /b 1
%REG% compare %OTHERS% %WHOLE% >nul
if errorlevel 1 (
    echo HKLM\%1 has changed meanwhile, or cannot be copied. Try again when nothing else writes there.
    exit /b 1
)
if not defined REPORT exit /b 0
set MISSING=
for %%V in (%NAMES%) do (
    %REG% query %SAVED%\Values\%1 /v %%V >nul 2>&1
    if errorlevel 1 call :missing %%V
)
:report
if defined REPORT if defined MISSING echo     not there, so that a restore removes:%MISSING%
exit /b 0
:fresh
%REG% delete %1 /f >nul 2>&1
%REG% add %1 /f >nul
if errorlevel 1 exit /b 1
rem Wine's reg gives a new key an unnamed value.
%REG% delete %1 /ve /f >nul 2>&1
exit /b 0
:missing
set "MISSING=%MISSING% %1"
exit /b 0
:table
%REG% query HKLM\%1 >nul 2>&1
if not errorlevel 1 goto :ports
if defined REPORT echo     not there, so that a restore removes it
exit /b 0
:ports
%REG% copy HKLM\%1 %SAVED%\Values\%1 /s /f >nul
exit /b %errorlevel%

rem Removes the values in NAMES from a key, whose root is written out.
:forget
if not "%2"=="" shift
echo REGEDIT4> "%TARGET%\forget.reg"
echo [%1]>> "%TARGET%\forget.reg"
for %%V in (%NAMES%) do echo "%%V"=->> "%TARGET%\forget.reg"
%REG% import "%TARGET%\forget.reg" >nul 2>&1
if errorlevel 1 exit /b 1
del "%TARGET%\forget.reg"
exit /b 0

rem Writes the scratch key SAVED to settings.reg in the folder TARGET, and sees that nothing has been lost in the file.
:write
rem Keys are written in the order of their names. What the last one holds tells that the file is whole.
%REG% add %SAVED%\zz /v List /d %LIST% /f >nul
if errorlevel 1 exit /b 1
%REG% add %SAVED%\zz /v Machine /d %MACHINE% /f >nul
if errorlevel 1 exit /b 1
%REG% export %SAVED% "%TARGET%\settings.reg" /y >nul
if errorlevel 1 exit /b 1
%REG% delete %OTHERS% /f >nul 2>&1
%REG% copy %SAVED% %OTHERS% /s /f >nul
if errorlevel 1 exit /b 1
%REG% delete %SAVED% /f >nul
if errorlevel 1 exit /b 1
%REG% import "%TARGET%\settings.reg" >nul 2>&1
if errorlevel 1 exit /b 1
%REG% compare %OTHERS% %SAVED% /s >nul
if not errorlevel 1 exit /b 0
echo A .reg file cannot hold these values as they are; OK in the editor stores them anew:
%REG% compare %OTHERS% %SAVED% /s
exit /b 1

:clean
for %%K in (%SAVED% %WANTED% %OTHERS% %WHOLE%) do %REG% delete %%K /f >nul 2>&1
exit /b 0
