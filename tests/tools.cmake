# Tests of the tools; a tool that is not built has none.
if(TARGET bureau_gateway_lib)
  zr_test_folder(gateway bureau_gateway_lib)
endif()

# The style sheets, over the example replies.
zr_test_folder(xslt zr_facade)

# The command line, as a stranger uses it: one file a case.
if(TARGET zrcreditbureau)
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  file(GLOB cases CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/cli/cases/*.case)
  if(TARGET bureau_gateway)
    file(GLOB live CONFIGURE_DEPENDS ${CMAKE_CURRENT_SOURCE_DIR}/cli/live_cases/*.case)
    list(APPEND cases ${live})
  endif()
  foreach(case IN LISTS cases)
    get_filename_component(name ${case} NAME_WE)
    add_test(NAME cli.${name}
             COMMAND Python3::Interpreter ${CMAKE_CURRENT_SOURCE_DIR}/cli/run_case.py
                     $<TARGET_FILE:zrcreditbureau> ${case})
    set_tests_properties(cli.${name} PROPERTIES TIMEOUT 120)
  endforeach()
endif()

# Enquiries over HTTPS, from the facade to the bureau stand-in and back.
if(TARGET bureau_gateway_lib)
  zr_test_folder(exchange zr_facade bureau_gateway_lib)
endif()
