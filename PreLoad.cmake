# Read before the generator is chosen: where there is Ninja and no make, a plain "cmake -B b" takes Ninja.
find_program(TLY_MAKE NAMES gmake make)
find_program(TLY_NINJA ninja)
if(TLY_NINJA AND NOT TLY_MAKE AND NOT DEFINED ENV{CMAKE_GENERATOR})
    set(CMAKE_GENERATOR Ninja CACHE INTERNAL "")
endif()
unset(TLY_MAKE CACHE)
unset(TLY_NINJA CACHE)
