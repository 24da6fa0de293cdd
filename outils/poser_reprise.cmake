# Lays the empty files of the project slot in the folder DOSSIER, only where there is none: a save replaces its header
# and never makes one, and a saved project stays as it is.
foreach(nom Resume.Trm Resume2.Trm)
  if(NOT EXISTS "${DOSSIER}/${nom}" AND NOT IS_SYMLINK "${DOSSIER}/${nom}")
    file(WRITE "${DOSSIER}/${nom}" "")
  endif()
endforeach()
