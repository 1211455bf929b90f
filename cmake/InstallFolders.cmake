# SPDX-License-Identifier: MIT
# Where an installed Zorvane lies. The programs look for templates and help in the folder of their own executable, so
# those lie together and /usr/bin has links to them: a further model is one more file in that folder.
include(GNUInstallDirs)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(ZORVANE_INSTALL_DIR lib/zorvane)
set(ZORVANE_INSTALL_MANUAL_DIR ${CMAKE_INSTALL_DATAROOTDIR}/doc/zorvane/html)
