if(T_GENPROC_SANITIZE)
  # Instrumented code misleads GCC into "maybe uninitialized", in the standard library too.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer
                      -O1 -g1 -Wno-maybe-uninitialized)
  add_link_options(-fsanitize=address,undefined)
endif()
