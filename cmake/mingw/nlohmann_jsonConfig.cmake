include(${CMAKE_CURRENT_LIST_DIR}/HostHeaders.cmake)
korvel_host_headers(nlohmann_json::nlohmann_json nlohmann)
