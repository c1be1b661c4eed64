@echo off
rem Saves what QBSettings stores on this machine into a new folder: save.cmd FOLDER
setlocal EnableExtensions DisableDelayedExpansion
if "%~1"=="" goto :usage
if not "%~2"=="" goto :usage
set "FOLDER=%~f1"
pushd "%~dp0"
call :save
set RESULT=%errorlevel%
popd
exit /b %RESULT%

:save
call .\parts.cmd ready
if errorlevel 1 exit /b 1
if exist "%FOLDER%" goto :not_new
mkdir "%FOLDER%" 2>nul
if not exist "%FOLDER%\" goto :not_new
set "TARGET=%FOLDER%"
call .\parts.cmd take report
if errorlevel 1 goto :undo
call .\parts.cmd write
if errorlevel 1 goto :undo
call .\parts.cmd clean
echo Saved in "%FOLDER%".
exit /b 0

:usage
echo usage: save.cmd FOLDER - a new folder, in quotation marks if there are blanks in its name
exit /b 1
:not_new
echo "%FOLDER%" exists already, or cannot be made; nothing was saved. Name a new folder.
exit /b 1
:undo
call .\parts.cmd clean
del "%FOLDER%\*.reg" 2>nul
rmdir "%FOLDER%"
echo Nothing was saved.
exit /b 1
