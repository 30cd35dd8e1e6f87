# What the installer asks and the uninstaller takes back: the program among those that open playlists
# and films, under "Open with" and in the settings of Windows. It never becomes the default by that.

set(suffixes m3u m3u8 mp4 m4v mkv webm avi mov wmv asf flv mpg mpeg vob ts m2ts ogv ogm 3gp divx)
set(program_id Vantiro.Player.Media)
set(class "Software\\Classes\\${program_id}")
# Not the key of the user's settings.
set(registration "Software\\VantiroPlayer")

set(install "
  SetRegView 64
  MessageBox MB_YESNO|MB_ICONQUESTION \
'Offer Vantiro Player for playlists and films under \"Open with\"?' /SD IDYES IDNO withoutFileTypes
  WriteRegStr SHCTX '${class}' '' 'Playlist or film'
  WriteRegStr SHCTX '${class}\\DefaultIcon' '' '$INSTDIR\\vantiro-player.exe,0'
  WriteRegStr SHCTX '${class}\\shell\\open\\command' '' '\"$INSTDIR\\vantiro-player.exe\" \"%1\"'
  WriteRegStr SHCTX '${registration}\\Capabilities' 'ApplicationName' 'Vantiro Player'
  WriteRegStr SHCTX '${registration}\\Capabilities' 'ApplicationDescription' '${PROJECT_DESCRIPTION}'
  WriteRegStr SHCTX 'Software\\RegisteredApplications' 'Vantiro Player' '${registration}\\Capabilities'
")
set(uninstall "
  SetRegView 64
  DeleteRegValue SHCTX 'Software\\RegisteredApplications' 'Vantiro Player'
  DeleteRegKey SHCTX '${registration}'
  DeleteRegKey SHCTX '${class}'
")
foreach(suffix IN LISTS suffixes)
    set(key "Software\\Classes\\.${suffix}")
    string(APPEND install "
  WriteRegStr SHCTX '${registration}\\Capabilities\\FileAssociations' '.${suffix}' '${program_id}'
  WriteRegStr SHCTX '${key}\\OpenWithProgids' '${program_id}' ''")
    string(APPEND uninstall "
  DeleteRegValue SHCTX '${key}\\OpenWithProgids' '${program_id}'
  DeleteRegKey /ifempty SHCTX '${key}\\OpenWithProgids'
  DeleteRegKey /ifempty SHCTX '${key}'")
endforeach()
# Explorer reads the types again.
set(notify "\n  System::Call 'shell32::SHChangeNotify(i 0x08000000, i 0, p 0, p 0)'\n")
set(CPACK_NSIS_EXTRA_INSTALL_COMMANDS "${install}${notify}  withoutFileTypes:\n")
set(CPACK_NSIS_EXTRA_UNINSTALL_COMMANDS "${uninstall}${notify}")
