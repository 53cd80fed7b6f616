; Zorvane's installer for 64-bit Windows, for all users of the machine.
; scripts/package-windows-stage runs makensis on it with these defined:
;   VERSION   the program's version, x.y.z
;   YEAR      the year of its copyright
;   STAGE     the staged program folder
;   OUTFILE   the installer to write
;   FILES     a list of SetOutPath and File lines, one for each staged file
;   UNFILES   a list of Delete lines for the same files, then RMDir for their
;             folders, deepest first
;   IDENTITY  the package-identity file, installed beside zorvane.exe
;   ICON      the program's icon
;   SIZE_KB   the installed size, for Add/Remove Programs
; The uninstaller removes what the lists name and nothing else: a folder
; that holds anything more (the user's own files) stays.

!macro REQUIRE NAME
    !ifndef ${NAME}
        !error "makensis needs -D${NAME}=..."
    !endif
!macroend
!insertmacro REQUIRE VERSION
!insertmacro REQUIRE YEAR
!insertmacro REQUIRE STAGE
!insertmacro REQUIRE OUTFILE
!insertmacro REQUIRE FILES
!insertmacro REQUIRE UNFILES
!insertmacro REQUIRE IDENTITY
!insertmacro REQUIRE ICON
!insertmacro REQUIRE SIZE_KB

Unicode true
Target amd64-unicode
SetCompressor /SOLID lzma
RequestExecutionLevel admin
ManifestDPIAware true

!define PUBLISHER "Halvertrix Technologies Limited"
!define UNINSTALL_KEY "Software\Microsoft\Windows\CurrentVersion\Uninstall\Zorvane"

Name "Zorvane"
OutFile "${OUTFILE}"
InstallDir "$PROGRAMFILES64\Zorvane"
; A new version goes where the last one went.
InstallDirRegKey HKLM "${UNINSTALL_KEY}" "InstallLocation"

VIProductVersion "${VERSION}.0"
VIFileVersion "${VERSION}.0"
VIAddVersionKey /LANG=1033 "ProductName" "Zorvane"
VIAddVersionKey /LANG=1033 "CompanyName" "${PUBLISHER}"
VIAddVersionKey /LANG=1033 "FileDescription" "Zorvane Setup"
VIAddVersionKey /LANG=1033 "FileVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "ProductVersion" "${VERSION}"
VIAddVersionKey /LANG=1033 "LegalCopyright" "Copyright (C) ${YEAR} ${PUBLISHER}"

!include "MUI2.nsh"
!include "LogicLib.nsh"

!define MUI_ICON "${ICON}"
!define MUI_UNICON "${ICON}"
!define MUI_ABORTWARNING
; No "run now" box: started from here, the program would run with the
; installer's administrator rights.
!insertmacro MUI_PAGE_DIRECTORY
!insertmacro MUI_PAGE_INSTFILES
!insertmacro MUI_UNPAGE_CONFIRM
!insertmacro MUI_UNPAGE_INSTFILES
!insertmacro MUI_LANGUAGE "English"

Function .onInit
    SetShellVarContext all
    SetRegView 64
FunctionEnd

Function un.onInit
    SetShellVarContext all
    SetRegView 64
FunctionEnd

Section "Zorvane"
    SectionIn RO

    ; The version installed before is removed by its own uninstaller first, so
    ; that no file it had and this one has not stays behind. Run in place
    ; (_?=), it waits for it and leaves itself, which goes last.
    ReadRegStr $0 HKLM "${UNINSTALL_KEY}" "InstallLocation"
    ${If} $0 != ""
    ${AndIf} ${FileExists} "$0\uninstall.exe"
        DetailPrint "Removing the version installed in $0"
        ExecWait '"$0\uninstall.exe" /S _?=$0'
        Delete "$0\uninstall.exe"
        RMDir "$0"
    ${EndIf}

    !include "${FILES}"
    SetOutPath "$INSTDIR"
    File "/oname=package-identity" "${IDENTITY}"
    WriteUninstaller "$INSTDIR\uninstall.exe"

    CreateShortcut "$SMPROGRAMS\Zorvane.lnk" "$INSTDIR\zorvane.exe" "" "$INSTDIR\zorvane.exe" 0

    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayName" "Zorvane"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayVersion" "${VERSION}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "Publisher" "${PUBLISHER}"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "DisplayIcon" "$INSTDIR\zorvane.exe,0"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "InstallLocation" "$INSTDIR"
    WriteRegStr HKLM "${UNINSTALL_KEY}" "UninstallString" '"$INSTDIR\uninstall.exe"'
    WriteRegStr HKLM "${UNINSTALL_KEY}" "QuietUninstallString" '"$INSTDIR\uninstall.exe" /S'
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "EstimatedSize" ${SIZE_KB}
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoModify" 1
    WriteRegDWORD HKLM "${UNINSTALL_KEY}" "NoRepair" 1
SectionEnd

Section "Uninstall"
    Delete "$SMPROGRAMS\Zorvane.lnk"
    !include "${UNFILES}"
    Delete "$INSTDIR\package-identity"
    Delete "$INSTDIR\uninstall.exe"
    RMDir "$INSTDIR"
    DeleteRegKey HKLM "${UNINSTALL_KEY}"
SectionEnd
