#include "sys/failure.h"

#include <cerrno>
#include <cstring>

LFailure LFailure::OfSystem(int error) {
    LFailure failure(error == EWOULDBLOCK ? "another program is using it" : std::strerror(error));
    failure.error = error;
    return failure;
}

LFailure LFailure::OfLastCall() {
    return OfSystem(errno);
}
