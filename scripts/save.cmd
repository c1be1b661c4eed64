@echo off
rem Saves what QBSettings stores on this machine into a new folder: save.cmd FOLDER
setlocal EnableExtensions DisableDelayedExpansion
if "%~1"=="" goto :usage
if not "%~2"=="" goto :usage
set "FOLDER=%~f1"
pushd "%~dp0"
call :save
set RESULT=%errorlevel%
call .\parts.cmd clean
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
echo Saved in "%FOLDER%".
exit /b 0

:usage
echo usage: save.cmd FOLDER - a new folder; put a name that has blanks in quotation marks
exit /b 1
:not_new
echo "%FOLDER%" already exists, or cannot be created. Nothing was saved. Name a new folder.
exit /b 1
:undo
del "%FOLDER%\*.reg" 2>nul
rmdir "%FOLDER%"
echo Nothing was saved.
exit /b 1
