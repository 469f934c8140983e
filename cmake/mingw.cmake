# Cross-building for Windows with MinGW-w64; `word` names the processor. The variants with POSIX
# threads are the ones that have std::thread and std::mutex.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR ${word})
set(CMAKE_C_COMPILER ${word}-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER ${word}-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER ${word}-w64-mingw32-windres)

# What scripts/windows-libraries has built, and nothing of this machine's own.
set(ZR_WINDOWS_LIBRARIES ${CMAKE_CURRENT_LIST_DIR}/../build/windows-libraries/${word})
set(CMAKE_FIND_ROOT_PATH ${ZR_WINDOWS_LIBRARIES} /usr/${word}-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Windows 8.1 and newer, with nothing to install beside what is built.
foreach(language C CXX)
  set(CMAKE_${language}_FLAGS_INIT "-D_WIN32_WINNT=0x0603 ${word_flags}")
endforeach()
foreach(kind EXE SHARED MODULE)
  set(CMAKE_${kind}_LINKER_FLAGS_INIT "-static")
endforeach()
