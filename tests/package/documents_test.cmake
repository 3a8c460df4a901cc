# Examples stand word for word in the documents that show them.
# usage: cmake -DROOT=DIR -P documents_test.cmake
foreach(pair README.md:list_nal_units docs/using.md:list_pictures)
  string(REPLACE ":" ";" pair ${pair})
  list(GET pair 0 document)
  list(GET pair 1 example)
  file(READ ${ROOT}/${document} text)
  file(READ ${ROOT}/examples/${example}.cpp program)
  string(FIND "${text}" "${program}" place)
  if(place EQUAL -1)
    message(FATAL_ERROR "${document} does not show examples/${example}.cpp as it is")
  endif()
endforeach()
