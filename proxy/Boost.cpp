// What Asio and Beast do not leave to templates, compiled once instead of with each source that includes them.
#include <boost/asio/impl/src.hpp>
#include <boost/beast/src.hpp>
