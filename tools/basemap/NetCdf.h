#pragma once

#include <cstddef>
#include <netcdf.h>
#include <stdexcept>
#include <string>
#include <vector>

namespace korvel::making {

/// A netCDF file that is open for reading. Failures are thrown.
class NetCdf {
 public:
    explicit NetCdf(const std::string& path) : path_(path) {
        check(nc_open(path.c_str(), NC_NOWRITE, &file_), path);
    }
    ~NetCdf() { nc_close(file_); }
    NetCdf(const NetCdf&) = delete;
    NetCdf& operator=(const NetCdf&) = delete;

    /// All values of a variable; the library turns numbers of any kind into these.
    std::vector<int> integers(const char* name) const {
        std::vector<int> values(sizeOf(name));
        check(nc_get_var_int(file_, id(name), values.data()), name);
        return values;
    }
    std::vector<double> numbers(const char* name) const {
        std::vector<double> values(sizeOf(name));
        check(nc_get_var_double(file_, id(name), values.data()), name);
        return values;
    }

 private:
    void check(int status, const std::string& what) const {
        if (status != NC_NOERR)
            throw std::runtime_error(path_ + ": " + what + ": " + nc_strerror(status));
    }
    int id(const char* name) const {
        int variable = 0;
        check(nc_inq_varid(file_, name, &variable), name);
        return variable;
    }
    std::size_t sizeOf(const char* name) const {
        int count = 0;
        check(nc_inq_varndims(file_, id(name), &count), name);
        std::vector<int> dimensions(static_cast<std::size_t>(count));
        check(nc_inq_vardimid(file_, id(name), dimensions.data()), name);
        std::size_t size = 1;
        for (const int dimension : dimensions) {
            std::size_t length = 0;
            check(nc_inq_dimlen(file_, dimension, &length), name);
            size *= length;
        }
        return size;
    }

    std::string path_;
    int file_ = 0;
};

}  // namespace korvel::making
