# Functions that are compiled for several processors, with all that they call; the loader takes the one that
# fits. Not every target has that, and sanitizers do not know such functions: there they are compiled once.
# Results do not differ, to the last bit: no processor is allowed to join a product and a sum into one rounding.
include(CheckCXXSourceCompiles)
set(ZEK_CLONES "__attribute__((flatten, target_clones(\"avx512f\", \"avx2\", \"default\")))")
check_cxx_source_compiles("${ZEK_CLONES} int Answer(int a) { return a; } int main() { return Answer(0); }"
  ZEK_HAVE_TARGET_CLONES)

# zek_for_each_processor(SOURCE...): defines ZEK_FOR_EACH_PROCESSOR, which marks such functions, for sources of
# the library.
function(zek_for_each_processor)
  if(ZEK_HAVE_TARGET_CLONES AND NOT ZEK_SANITIZE)
    set(clones "${ZEK_CLONES}")
  endif()
  set_property(SOURCE ${ARGN} TARGET_DIRECTORY ZEK_lib APPEND PROPERTY
    COMPILE_DEFINITIONS "ZEK_FOR_EACH_PROCESSOR=${clones}")
endfunction()
