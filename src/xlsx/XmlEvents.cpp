// SPDX-License-Identifier: MIT
#include "xlsx/XmlEvents.h"

#include <cstdint>
#include <exception>
#include <memory>
#include <new>
#include <string>

#include <expat.h>

namespace planview::xlsx {

namespace {

std::string_view WithoutPrefix(const char* name) noexcept {
    const char* start = name;
    const char* end = name;
    for (; *end != '\0'; ++end) {
        if (*end == ':') {
            start = end + 1;
        }
    }
    return {start, static_cast<std::size_t>(end - start)};
}

struct FreeParser {
    void operator()(XML_ParserStruct* parser) const noexcept { XML_ParserFree(parser); }
};

/// One parse. No exception may cross the parser, which is C: it is kept, and thrown when the parser has returned.
class Parse {
public:
    Parse(XmlEvents& events, const ReadLimits& limits) : events_(&events), limits_(&limits) {
        parser_.reset(XML_ParserCreate(nullptr));
        if (!parser_) {
            throw std::bad_alloc();
        }
        XML_SetUserData(parser_.get(), this);
        XML_SetElementHandler(parser_.get(), &Parse::OnStart, &Parse::OnEnd);
        XML_SetCharacterDataHandler(parser_.get(), &Parse::OnText);
        XML_SetStartDoctypeDeclHandler(parser_.get(), &Parse::OnDoctype);
    }

    void Feed(std::string_view piece, bool last) {
        fed_ += static_cast<std::int64_t>(piece.size());
        const XML_Status status =
            XML_Parse(parser_.get(), piece.data(), static_cast<int>(piece.size()), last ? XML_TRUE : XML_FALSE);
        if (failure_) {
            std::rethrow_exception(failure_);
        }
        if (status != XML_STATUS_OK) {
            const XML_Error error = XML_GetErrorCode(parser_.get());
            if (error == XML_ERROR_NO_MEMORY) {
                throw std::bad_alloc();
            }
            throw BrokenFile("line " + std::to_string(XML_GetCurrentLineNumber(parser_.get())) +
                             " cannot be read: " + XML_ErrorString(error));
        }
        // What was fed and not yet told belongs to one token, which the parser would look at anew each time.
        if (!last && fed_ - XML_GetCurrentByteIndex(parser_.get()) > static_cast<std::int64_t>(limits_->tokenBytes)) {
            throw BrokenFile("a single piece of text or tag is longer than " +
                             std::to_string(limits_->tokenBytes >> 10) + " KB");
        }
    }

private:
    template <class Body>
    void Guard(Body&& body) noexcept {
        if (failure_) {
            return;
        }
        try {
            body();
        } catch (const std::exception&) {
            failure_ = std::current_exception();
            XML_StopParser(parser_.get(), XML_FALSE);
        }
    }

    static void XMLCALL OnStart(void* self, const char* name, const char** attributes) {
        Parse& parse = *static_cast<Parse*>(self);
        parse.Guard([&] {
            if (++parse.depth_ > parse.limits_->elementDepth) {
                throw BrokenFile("its elements are nested too deeply");
            }
            parse.events_->Start(WithoutPrefix(name), XmlAttributes(attributes));
        });
    }

    static void XMLCALL OnEnd(void* self, const char* name) {
        Parse& parse = *static_cast<Parse*>(self);
        parse.Guard([&] {
            --parse.depth_;
            parse.events_->End(WithoutPrefix(name));
        });
    }

    static void XMLCALL OnText(void* self, const char* text, int length) {
        Parse& parse = *static_cast<Parse*>(self);
        parse.Guard([&] { parse.events_->Text({text, static_cast<std::size_t>(length)}); });
    }

    static void XMLCALL OnDoctype(void* self, const char*, const char*, const char*, int) {
        static_cast<Parse*>(self)->Guard(
            [] { throw BrokenFile("it declares a document type, which workbooks do not"); });
    }

    XmlEvents* events_;
    const ReadLimits* limits_;
    std::unique_ptr<XML_ParserStruct, FreeParser> parser_;
    std::exception_ptr failure_;
    std::int64_t fed_ = 0;
    int depth_ = 0;
};

}  // namespace

std::string_view XmlAttributes::operator[](std::string_view name) const noexcept {
    for (const char* const* pair = pairs_; *pair; pair += 2) {
        if (name == pair[0]) {
            return pair[1];
        }
    }
    return {};
}

std::string_view XmlAttributes::Prefixed(std::string_view name) const noexcept {
    for (const char* const* pair = pairs_; *pair; pair += 2) {
        const std::string_view local = WithoutPrefix(pair[0]);
        if (local.data() != pair[0] && local == name) {
            return pair[1];
        }
    }
    return {};
}

void ReadXml(ZipParts& parts, const std::string& name, XmlEvents& events) {
    Parse parse(events, parts.Limits());
    try {
        parts.Read(name, [&](std::string_view piece) { parse.Feed(piece, false); });
        parse.Feed({}, true);
    } catch (const BrokenFile& error) {
        const std::string text = error.what();
        throw BrokenFile(text.find(name) == std::string::npos ? "its part '" + name + "': " + text : text);
    }
}

}  // namespace planview::xlsx
