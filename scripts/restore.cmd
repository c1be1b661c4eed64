@echo off
rem Restores what save.cmd saved in a folder: restore.cmd FOLDER [/anyway]
setlocal EnableExtensions DisableDelayedExpansion
set ANYWAY=
if "%~1"=="" goto :usage
if /i "%~2"=="/anyway" set ANYWAY=1
if not "%~2"=="" if not defined ANYWAY goto :usage
set "FOLDER=%~f1"
if "%FOLDER:~-1%"=="\" set "FOLDER=%FOLDER:~0,-1%"
pushd "%~dp0"
call :restore
set RESULT=%errorlevel%
call .\parts.cmd clean
popd
exit /b %RESULT%

:restore
call .\parts.cmd ready
if errorlevel 1 exit /b 1
rem Only scratch keys are written until all checks have passed. The first key in the file must be SAVED, because reg imports
rem a file to the keys that it names. Windows reads UTF-16 through type, Wine reads it without type.
if not exist "%FOLDER%\settings.reg" goto :not_whole
pushd "%FOLDER%"
set FIRST=
for /f "skip=1 delims=" %%L in ('type settings.reg') do if not defined FIRST set "FIRST=%%L"
if not defined FIRST for /f "skip=1 delims=" %%L in (settings.reg) do if not defined FIRST set "FIRST=%%L"
popd
if not "%FIRST%"=="[HKEY_LOCAL_MACHINE\SOFTWARE\QBSettings.saved]" goto :not_whole
%REG% delete %SAVED% /f >nul 2>&1
%REG% import "%FOLDER%\settings.reg" >nul 2>&1
if errorlevel 1 goto :not_whole
set SAVED_LIST=
set SAVED_MACHINE=
for /f "tokens=1-3" %%A in ('%REG% query %SAVED%\zz') do (
    if "%%A"=="List" set "SAVED_LIST=%%C"
    if "%%A"=="Machine" set "SAVED_MACHINE=%%C"
)
if not defined SAVED_MACHINE goto :not_whole
if not "%SAVED_LIST%"=="%LIST%" goto :other_list
if not "%SAVED_MACHINE%"=="%MACHINE%" if not defined ANYWAY goto :other_machine
%REG% delete %WANTED% /f >nul 2>&1
%REG% copy %SAVED% %WANTED% /s /f >nul
if errorlevel 1 goto :failed

set NUMBER=0
:next
set /a NUMBER+=1
set "TARGET=%FOLDER%\before-%NUMBER%"
if exist "%TARGET%" goto :next
mkdir "%TARGET%" 2>nul
if not exist "%TARGET%\" goto :no_folder
call .\parts.cmd take
if errorlevel 1 goto :undo
call .\parts.cmd write
if errorlevel 1 if not defined ANYWAY goto :undo

set FAILED=
for /f "eol=# tokens=1,*" %%K in (values.txt) do (
    set "NAMES=%%L"
    call :key %%K
    if errorlevel 1 set FAILED=1
)
call .\parts.cmd take
if errorlevel 1 set FAILED=1
%REG% compare %WANTED%\Values %SAVED%\Values /s >nul
if errorlevel 1 set FAILED=1
if defined FAILED goto :differs
echo Compared: what QBSettings stores is the same as when "%FOLDER%" was saved.
echo The previous state is saved in "%TARGET%".
echo Restart the tools. If IMODInterval has changed, restart the machine.
exit /b 0

:key
if "%NAMES%"=="*" goto :table
%REG% query HKLM\%1 >nul 2>&1
if not errorlevel 1 call .\parts.cmd forget HKEY_LOCAL_MACHINE\%1
rem Only the line of a value has a second word. A key that had no values when it was saved is not created.
set HOLDS=
for /f "tokens=2" %%L in ('%REG% query %WANTED%\Values\%1') do set HOLDS=1
if not defined HOLDS exit /b 0
%REG% copy %WANTED%\Values\%1 HKLM\%1 /f >nul
exit /b %errorlevel%
:table
%REG% delete HKLM\%1 /f >nul 2>&1
%REG% query %WANTED%\Values\%1 >nul 2>&1
if errorlevel 1 exit /b 0
%REG% copy %WANTED%\Values\%1 HKLM\%1 /s /f >nul
exit /b %errorlevel%

:usage
echo usage: restore.cmd FOLDER [/anyway] - a folder that save.cmd made; put a name that has blanks in quotation marks
exit /b 1
:not_whole
echo "%FOLDER%" has no settings.reg from save.cmd, or the file is incomplete. Nothing was changed.
exit /b 1
:other_list
echo "%FOLDER%" was saved with another list of values. Nothing was changed. Use the restore.cmd of that version.
exit /b 1
:other_machine
echo "%FOLDER%" was saved on another machine. Nothing was changed. To restore it here, add /anyway.
exit /b 1
:no_folder
echo "%TARGET%" cannot be created for the present state. Nothing was changed. Copy the folder to a place where it can be written.
exit /b 1
:failed
echo Nothing was changed, because reg failed with the message above.
exit /b 1
:undo
del "%TARGET%\*.reg" 2>nul
rmdir "%TARGET%"
echo The present state cannot be saved, so nothing was changed. To restore without saving it, add /anyway.
exit /b 1
:differs
echo Compared: some values differ from the saved ones:
%REG% compare %WANTED%\Values %SAVED%\Values /s
echo The previous state is saved in "%TARGET%". Restore that folder, or repeat this restore.
exit /b 1
