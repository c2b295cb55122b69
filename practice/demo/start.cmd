@echo off
rem Starts the workbench with practice tools and sample games, all in this folder. Your own settings
rem file is left alone.
cd /d "%~dp0"

for %%f in (program program\pictures kelm\programs kelm\dos kelm\editor office) do if not exist %%f mkdir %%f
copy /y ..\nwbw.exe program >nul
copy /y ..\*.htm program >nul
copy /y ..\nwbw.css program >nul
copy /y ..\pictures\* program\pictures >nul
if not exist program\nwbw.ini copy nwbw.ini program >nul
for %%t in (programs\kelm programs\winkrun programs\krun programs\klex dos\krun) do copy /y practice_tool.exe kelm\%%t.exe >nul
copy /y practice_editor.exe kelm\editor\editor.exe >nul
copy /y practice_editor.exe office\winword.exe >nul

cd "my games"
start "" ..\program\nwbw.exe
