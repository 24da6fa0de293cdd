# Writes what names the guide by its full path, which is known only when the program is installed.
# PREFIXE: as installed, below the staging folder of the packager where there is one. MODELES, VERS, DOSSIER_GUIDE.
string(REGEX REPLACE "^.*/_CPack_Packages/[^/]+/[^/]+/[^/]+" "" PREFIXE "${PREFIXE}")
set(CHEMIN_GUIDE ${DOSSIER_GUIDE})
if(NOT IS_ABSOLUTE "${DOSSIER_GUIDE}")
  set(CHEMIN_GUIDE ${PREFIXE}/${DOSSIER_GUIDE})
endif()
set(PAGE_GUIDE ${CHEMIN_GUIDE}/index.html)
foreach(modele IN LISTS MODELES)
  get_filename_component(fait ${modele} NAME_WLE)
  configure_file(${modele} ${VERS}/${fait} @ONLY)
endforeach()
