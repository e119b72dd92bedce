@echo off
rem Takes away every key that registering has written, the current user's and the machine's.
regsvr32 /u "%~dp0tablio.dll"
