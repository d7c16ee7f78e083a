// The parts of Asio and Beast that are no templates, compiled once instead of in each source that includes them.
#include <boost/asio/impl/src.hpp>
#include <boost/beast/src.hpp>
