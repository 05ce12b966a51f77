# What `cmake --install` puts where. The libraries and the command find one another by where they lie, so that what is
# installed may be moved as a whole.
include(GNUInstallDirs)

set(headers "${CMAKE_INSTALL_INCLUDEDIR}/mfilter")
install(TARGETS mfilter vantraplugin LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}")
install(TARGETS mfilter_command RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")
install(FILES include/mfilter/mfilter.h DESTINATION "${headers}")
# For those who write a backend; they include them as they stand here.
install(FILES backend/handler/Backend.h backend/handler/BackendObject.h DESTINATION "${headers}/backend/handler")
install(FILES foundation/Base.h DESTINATION "${headers}/foundation")
install(FILES README.md LICENSE DESTINATION "${CMAKE_INSTALL_DOCDIR}")
install(DIRECTORY docs DESTINATION "${CMAKE_INSTALL_DOCDIR}")
