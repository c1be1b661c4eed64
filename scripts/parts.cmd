@echo off
rem The steps that save.cmd and restore.cmd share. Both call this file from its own folder. values.txt in the same folder
rem lists a key and the names of its values in each line, or a key and * for a port table, which is saved as a whole.
rem
rem No command copies a single value with its type and bytes. These scripts therefore copy whole keys to a scratch key and
rem remove the values of other programs there. Copying a key back leaves all other values unchanged.
goto :%1

:ready
set "REG=%SystemRoot%\System32\reg.exe"
set "TASKLIST=%SystemRoot%\System32\tasklist.exe"
rem In a 32-bit prompt, System32 has the 32-bit reg, which uses the 32-bit view of the registry.
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
    echo values.txt beside this script is missing or incomplete. Unpack the whole package again.
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
    echo tasklist does not list any process, so QBSettings may be open. Try again when tasklist works.
    exit /b 1
)
%REG% add %SAVED% /f >nul 2>&1
if errorlevel 1 (
    echo This needs an administrator's prompt: start cmd with "Run as administrator".
    exit /b 1
)
exit /b 0

rem Copies what the editor stores, and nothing else, into the scratch key SAVED. Uses a temporary file in the folder TARGET.
rem With a second argument, also prints which values do not exist.
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
%REG% query HKLM\%1 >nul 2>&1
if errorlevel 1 goto :absent
%REG% copy HKLM\%1 %SAVED%\Values\%1 /f >nul
if errorlevel 1 exit /b 1
%REG% delete %OTHERS% /f >nul 2>&1
%REG% copy %SAVED%\Values\%1 %OTHERS% /f >nul
if errorlevel 1 exit /b 1
call :forget HKEY_LOCAL_MACHINE\SOFTWARE\QBSettings.others
if errorlevel 1 exit /b 1
%REG% delete %WHOLE% /f >nul 2>&1
%REG% copy %OTHERS% %WHOLE% /f >nul
if errorlevel 1 exit /b 1
rem OTHERS now has only the values of other programs. The first one to six words of each line that reg prints are tried as
rem a value's name. The editor's values are no longer in OTHERS, so a text that looks like one of their names hits nothing.
%REG% delete %OTHERS% /ve /f >nul 2>&1
if not errorlevel 1 %REG% delete %SAVED%\Values\%1 /ve /f >nul
for /f "tokens=1-6" %%A in ('%REG% query %OTHERS%') do (
    if not "%%B"=="" for %%V in ("%%A" "%%A %%B" "%%A %%B %%C" "%%A %%B %%C %%D" "%%A %%B %%C %%D %%E" "%%A %%B %%C %%D %%E %%F") do (
        %REG% delete %OTHERS% /v %%V /f <nul >nul 2>&1
        if not errorlevel 1 %REG% delete %SAVED%\Values\%1 /v %%V /f <nul >nul
    )
)
rem Only the line of a value has a second word.
set LEFT=
for /f "tokens=2" %%L in ('%REG% query %OTHERS%') do set LEFT=1
if defined LEFT (
    echo HKLM\%1 has a value of another program that these commands cannot name. Save that key with regedit.
    exit /b 1
)
rem The editor's values and those of other programs together must equal the original key.
%REG% copy %SAVED%\Values\%1 %WHOLE% /f >nul
if errorlevel 1 exit /b 1
%REG% copy HKLM\%1 %OTHERS% /f >nul
if errorlevel 1 exit /b 1
%REG% compare %OTHERS% %WHOLE% >nul
if errorlevel 1 (
    echo HKLM\%1 has changed during the save, or cannot be copied. Try again when no other program writes there.
    exit /b 1
)
if not defined REPORT exit /b 0
for %%V in (%NAMES%) do set "FOUND_%%V="
for /f %%V in ('%REG% query %SAVED%\Values\%1') do set "FOUND_%%V=1"
set MISSING=
for %%V in (%NAMES%) do if not defined FOUND_%%V call :missing %%V
:report
if defined REPORT if defined MISSING echo     not there, so that a restore removes:%MISSING%
exit /b 0
:missing
set "MISSING=%MISSING% %1"
exit /b 0
:absent
rem The scratch key is made in any case, so that a comparison of two states finds differences of values only.
%REG% add %SAVED%\Values\%1 /f >nul
if errorlevel 1 exit /b 1
rem Wine's reg gives a new key an unnamed value.
%REG% delete %SAVED%\Values\%1 /ve /f >nul 2>&1
set "MISSING= %NAMES%"
goto :report
:table
%REG% query HKLM\%1 >nul 2>&1
if errorlevel 1 goto :no_table
%REG% copy HKLM\%1 %SAVED%\Values\%1 /s /f >nul
exit /b %errorlevel%
:no_table
if defined REPORT echo     not there, so that a restore removes it
exit /b 0

rem Removes the values in NAMES from a key. The key's root must be written out.
:forget
if not "%2"=="" shift
echo REGEDIT4> "%TARGET%\forget.reg"
echo [%1]>> "%TARGET%\forget.reg"
for %%V in (%NAMES%) do echo "%%V"=->> "%TARGET%\forget.reg"
%REG% import "%TARGET%\forget.reg" >nul 2>&1
if errorlevel 1 exit /b 1
del "%TARGET%\forget.reg"
exit /b 0

rem Writes the scratch key SAVED to settings.reg in the folder TARGET, and checks that the file has lost nothing.
:write
rem reg exports keys in the order of their names. A file that has the values of the last key is complete.
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
echo A .reg file cannot hold these values as they are. OK in the editor stores them in a form that it can hold:
%REG% compare %OTHERS% %SAVED% /s
exit /b 1

:clean
for %%K in (%SAVED% %WANTED% %OTHERS% %WHOLE%) do %REG% delete %%K /f >nul 2>&1
exit /b 0
