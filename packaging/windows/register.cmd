@echo off
rem Registers the control of this folder for every user. Start it as an administrator; /s keeps it silent.
regsvr32 %* "%~dp0Norvel_Ovaline.dll"
