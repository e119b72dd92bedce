@echo off
rem Registers the control for the current user alone, who needs no rights for it.
setlocal
set TABLIO_REGISTER=user
regsvr32 "%~dp0tablio.dll"
