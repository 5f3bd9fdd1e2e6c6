# What `cmake --install` gives: libraries, headers, the package for find_package(kuVariants).
