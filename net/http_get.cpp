#include "net/http_get.h"

void ProcessHTTPSplitHost(const char* url, std::string& host, std::string& path) {
    host.clear();
    for (; *url != '\0' && (url[0] != '/' || url[1] == '/'); ++url) {
        if (*url == '/') {
            ++url;
            host.clear();
        } else if (host.size() < MaxHostLength) {
            host += *url;
        }
    }
    path = url;
}

std::string MakeHTTPRequest(const std::string& host, const std::string& path) {
    return "GET " + path + " HTTP/1.0\r\nHost: " + host + "\r\n\r\n";
}
