#include "json/BusinessJson.h"

#include "json/InvalidInput.h"

#include <boost/json/error.hpp>
#include <boost/json/parser.hpp>

#include <string>

namespace TLGateway {

boost::json::value ParseBusinessJson(std::string_view text)
{
    boost::json::parse_options options;
    options.max_depth = MaxJsonDepth;
    boost::json::parser parser({}, options);
    boost::json::error_code error;
    const std::size_t read = parser.write_some(text.data(), text.size(), error);
    if (!error && read < text.size()) {
        error = boost::json::error::extra_data;
    }
    if (error == boost::json::error::too_deep) {
        throw InvalidInput(InvalidInput::Rule::Limit,
                           "$: nested deeper than the limit of " + std::to_string(MaxJsonDepth) + " levels");
    }
    if (error) {
        throw InvalidInput(InvalidInput::Rule::Json, "the business JSON is not JSON: " + error.message() +
                                                         " near byte " + std::to_string(read));
    }
    return parser.release();
}

} // namespace TLGateway
