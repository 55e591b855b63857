# The database engine: SQLite3 Multiple Ciphers, as an npm package ships its source. Fetched once per build folder.
enable_language(C)

set(package better-sqlite3-multiple-ciphers-12.11.1)
set(package_sha512 a46ef6fb7564522a67998c782f042aa0e5cd1b6089d479660eb96faa0afbc501e0b04f9ccf9ac064489a2479d42931da19f1a27e0800fc2d12bfda99954adfa3)
set(fetched ${PROJECT_BINARY_DIR}/${package})
set(engine ${fetched}/package/deps/sqlite3)

if(NOT EXISTS ${engine}/sqlite3.c)
  find_program(T_GENPROC_NPM npm DOC "Fetches the database engine")
  if(NOT T_GENPROC_NPM)
    message(FATAL_ERROR "The database engine is fetched with npm, which is missing (Debian package npm). "
                        "-DT_GENPROC_SQLITE=OFF builds without databases.")
  endif()
  file(MAKE_DIRECTORY ${fetched})
  string(REGEX REPLACE "-([0-9.]+)$" "@\\1" package_and_version ${package})
  execute_process(COMMAND ${T_GENPROC_NPM} pack --loglevel=error --prefer-offline ${package_and_version}
                  WORKING_DIRECTORY ${fetched} OUTPUT_QUIET ERROR_VARIABLE complaint RESULT_VARIABLE failure)
  if(failure)
    message(FATAL_ERROR "npm cannot fetch ${package_and_version}:\n${complaint}")
  endif()
  file(SHA512 ${fetched}/${package}.tgz sha512)
  if(NOT sha512 STREQUAL package_sha512)
    message(FATAL_ERROR "${fetched}/${package}.tgz is not the package that was chosen: its SHA-512 differs.")
  endif()
  # Aside first: an extraction that was interrupted does not count.
  file(ARCHIVE_EXTRACT INPUT ${fetched}/${package}.tgz DESTINATION ${fetched}/aside PATTERNS */sqlite3.c */sqlite3.h)
  file(REMOVE_RECURSE ${fetched}/package)
  file(RENAME ${fetched}/aside/package ${fetched}/package)
  file(REMOVE ${fetched}/${package}.tgz)
endif()

add_library(sqlite3mc STATIC ${engine}/sqlite3.c)
target_include_directories(sqlite3mc SYSTEM INTERFACE $<BUILD_INTERFACE:${engine}>)
target_compile_options(sqlite3mc PRIVATE -w -O2 -g0)
target_compile_definitions(sqlite3mc PRIVATE
  SQLITE_DQS=0  # a text in double quotes is a name, never a text
  SQLITE_THREADSAFE=2  # each connection belongs to one thread
  SQLITE_DEFAULT_MEMSTATUS=0
  SQLITE_TEMP_STORE=3  # what is sorted never goes to a file, deciphered
  SQLITE_LIKE_DOESNT_MATCH_BLOBS
  SQLITE_USE_URI=0
  SQLITE_OMIT_DEPRECATED
  SQLITE_OMIT_LOAD_EXTENSION
  SQLITE_OMIT_PROGRESS_CALLBACK
  SQLITE_OMIT_SHARED_CACHE
  # Of the ciphers, the one that most processors have instructions for; without them it works, more slowly.
  CODEC_TYPE=CODEC_TYPE_AEGIS
  HAVE_CIPHER_AES_128_CBC=0 HAVE_CIPHER_AES_256_CBC=0 HAVE_CIPHER_SQLCIPHER=0
  HAVE_CIPHER_RC4=0 HAVE_CIPHER_ASCON128=0 HAVE_CIPHER_CHACHA20=0
  # A processor of 32 bits may have none, and the compiler's headers then refuse them.
  $<$<EQUAL:${CMAKE_SIZEOF_VOID_P},4>:AEGIS_OMIT_AES_HARDWARE_SUPPORT>)
