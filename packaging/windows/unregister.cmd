@echo off
rem Takes the registration back. Start it as an administrator; /s keeps it silent.
regsvr32 /u %* "%~dp0Norvel_Ovaline.dll"
