# rz_library(NAME DIR [DEPS...]): a static library of every .cpp directly in DIR,
# with the project root on the include path so headers read "rib/lexanrib.h".
function(rz_library name dir)
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${dir}/*.cpp)
  if(srcs)
    add_library(${name} STATIC ${srcs})
    target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR})
    if(ARGN)
      target_link_libraries(${name} PUBLIC ${ARGN})
    endif()
  else()
    add_library(${name} INTERFACE)
    target_include_directories(${name} INTERFACE ${CMAKE_SOURCE_DIR})
    if(ARGN)
      target_link_libraries(${name} INTERFACE ${ARGN})
    endif()
  endif()
endfunction()

# rz_gtest(NAME DIR [LIBS...]): one GoogleTest executable of every .cpp in DIR,
# each test registered with CTest.
function(rz_gtest name dir)
  find_package(GTest REQUIRED)
  include(GoogleTest)
  file(GLOB srcs CONFIGURE_DEPENDS ${CMAKE_SOURCE_DIR}/${dir}/*.cpp)
  if(NOT srcs)
    return()
  endif()
  add_executable(${name} ${srcs})
  target_link_libraries(${name} PRIVATE ${ARGN} rz_testsupport GTest::gtest GTest::gtest_main)
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR})
  gtest_discover_tests(${name} WORKING_DIRECTORY ${CMAKE_SOURCE_DIR} DISCOVERY_TIMEOUT 60
                       PROPERTIES ENVIRONMENT "RZ_SOURCE_DIR=${CMAKE_SOURCE_DIR}")
endfunction()
