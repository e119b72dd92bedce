@echo off
rem Registers the control for all users of this machine; to be started as an administrator.
regsvr32 "%~dp0tablio.dll"
