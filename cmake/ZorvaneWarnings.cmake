# Applied to every target of the project (not to Qt's generated sources,
# which we cannot change).
add_compile_options(
    -Wall -Wextra -Wpedantic
    -Wold-style-cast -Wnon-virtual-dtor -Woverloaded-virtual
    -Wshadow -Wconversion -Wsign-conversion)

if(ZORVANE_WERROR)
    add_compile_options(-Werror)
endif()

if(ZORVANE_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined -fno-sanitize-recover=all)
endif()

add_compile_definitions(
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_KEYWORDS
    QT_NO_FOREACH
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_USE_QSTRINGBUILDER
    OPENSSL_API_COMPAT=30000
    OPENSSL_NO_DEPRECATED)
