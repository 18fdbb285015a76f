#include "adapters/tables/xml_stream.h"

#include <libxml/SAX2.h>
#include <libxml/parser.h>
#include <libxml/parserInternals.h>

#include <array>
#include <charconv>
#include <exception>
#include <memory>
#include <new>
#include <string>

#include "adapters/tables/limits.h"
#include "adapters/tables/refusal.h"

namespace kelvane::tables {

namespace {

std::string_view ViewOf(const xmlChar* text) {
    return text == nullptr ? std::string_view() : reinterpret_cast<const char*>(text);
}

// Most names are of a letter or two: to count them first would take longer.
bool IsNamed(const xmlChar* text, std::string_view name) {
    for (const char c : name) {
        if (static_cast<char>(*text++) != c) return false;
    }
    return *text == 0;
}

struct ContextRelease {
    void operator()(xmlParserCtxt* context) const { xmlFreeParserCtxt(context); }
};

// Stands between the library, which no exception may pass through, and a handler.
class Stream {
public:
    Stream(ZipArchive& archive, std::string_view name, std::string_view root, XmlHandler& handler)
        : mArchive(archive), mName(name), mRoot(root), mHandler(handler) {}

    void Run();

private:
    static Stream& Of(void* stream) { return *static_cast<Stream*>(stream); }
    static int Read(void* stream, char* to, int count) noexcept;
    static void Begin(void* stream, const xmlChar* name, const xmlChar* prefix,
                      const xmlChar* space, int spaces, const xmlChar** declared, int count,
                      int defaulted, const xmlChar** attributes) noexcept;
    static void End(void* stream, const xmlChar* name, const xmlChar* prefix,
                    const xmlChar* space) noexcept;
    static void Text(void* stream, const xmlChar* text, int length) noexcept;
    static void Comment(void* stream, const xmlChar* text) noexcept;
    static void Instruction(void* stream, const xmlChar* target, const xmlChar* text) noexcept;
    static void DocumentType(void* stream, const xmlChar* name, const xmlChar* id,
                             const xmlChar* place) noexcept;

    // Keeps what `work` throws, and does nothing any more after it.
    template <typename Work>
    void Guard(const Work& work) noexcept {
        if (mFailure) return;
        try {
            work();
        } catch (...) {
            mFailure = std::current_exception();
        }
    }

    // The same for what was read, which ends the reading.
    template <typename Work>
    void Handle(const Work& work) noexcept {
        Guard(work);
        if (mFailure) xmlStopParser(mContext.get());
    }

    void CountEvent();
    void CountGap(std::string_view bytes);
    bool GoesInto(std::string_view name, const xmlChar* space, const XmlAttributes& attributes);
    [[noreturn]] void Refuse(const std::string& reason) const;

    ZipArchive& mArchive;
    std::string mName;
    std::string_view mRoot;
    XmlHandler& mHandler;
    std::unique_ptr<xmlParserCtxt, ContextRelease> mContext;
    std::exception_ptr mFailure;
    const xmlChar* mSpace = nullptr;
    std::array<std::size_t, kMaxXmlDepth> mDeclared{};
    std::size_t mSpaces = 0;
    std::size_t mDepth = 0;
    std::size_t mPassedOver = 0;  // depth within what is passed over
    std::size_t mEvents = 0;
    std::size_t mGap = 0;
};

void Stream::Refuse(const std::string& reason) const {
    throw Refusal("已损坏：" + mName + " " + reason);
}

void Stream::CountEvent() {
    if (++mEvents > kMaxXmlEvents) throw Refusal("内容太多：" + mName);
    mArchive.Spend(mEvents * kXmlEventCost);
}

// The library compares each attribute of a tag with each other before it hands the tag over.
void Stream::CountGap(std::string_view bytes) {
    const std::size_t first = bytes.find('<');
    const bool none = first == std::string_view::npos;
    if (mGap + (none ? bytes.size() : first) > kMaxXmlTag) Refuse("中有太长的内容");
    mGap = none ? mGap + bytes.size() : bytes.size() - bytes.rfind('<');
}

int Stream::Read(void* stream, char* to, int count) noexcept {
    Stream& self = Of(stream);
    std::size_t read = 0;
    self.Guard([&] {
        read = self.mArchive.Read(to, static_cast<std::size_t>(count));
        self.CountGap({to, read});
    });
    // The library has its hands in what it reads: it is not stopped here, but finds no more.
    return self.mFailure ? -1 : static_cast<int>(read);
}

bool Stream::GoesInto(std::string_view name, const xmlChar* space,
                      const XmlAttributes& attributes) {
    if (mDepth == 1) {
        if (name != mRoot) Refuse("不是应有的内容");
        mSpace = space;
        return true;
    }
    // The library keeps each namespace's name once.
    const bool known = space == mSpace || mHandler.Knows(ViewOf(space));
    return known && mHandler.Begin(name, attributes);
}

void Stream::Begin(void* stream, const xmlChar* name, const xmlChar* /*prefix*/,
                   const xmlChar* space, int spaces, const xmlChar** /*declared*/, int count,
                   int /*defaulted*/, const xmlChar** attributes) noexcept {
    Stream& self = Of(stream);
    self.Handle([&] {
        self.CountEvent();
        if (self.mDepth == kMaxXmlDepth) self.Refuse("层次太深");
        const auto declared = static_cast<std::size_t>(spaces);
        const auto given = static_cast<std::size_t>(count);
        self.mDeclared[self.mDepth++] = declared;
        self.mSpaces += declared;
        if (given > kMaxXmlAttributes || self.mSpaces > kMaxXmlAttributes) {
            self.Refuse("中有太多属性");
        }
        if (self.mPassedOver > 0 || !self.GoesInto(ViewOf(name), space, {attributes, given})) {
            ++self.mPassedOver;
        }
    });
}

void Stream::End(void* stream, const xmlChar* name, const xmlChar* /*prefix*/,
                 const xmlChar* /*space*/) noexcept {
    Stream& self = Of(stream);
    self.Handle([&] {
        self.mSpaces -= self.mDeclared[--self.mDepth];
        if (self.mPassedOver > 0) {
            --self.mPassedOver;
        } else if (self.mDepth > 0) {
            self.mHandler.End(ViewOf(name));
        }
    });
}

void Stream::Text(void* stream, const xmlChar* text, int length) noexcept {
    Stream& self = Of(stream);
    self.Handle([&] {
        self.CountEvent();
        if (self.mPassedOver > 0) return;
        self.mHandler.Text({reinterpret_cast<const char*>(text), static_cast<std::size_t>(length)});
    });
}

void Stream::Comment(void* stream, const xmlChar* /*text*/) noexcept {
    Of(stream).Handle([&] { Of(stream).CountEvent(); });
}

void Stream::Instruction(void* stream, const xmlChar* /*target*/, const xmlChar* text) noexcept {
    Comment(stream, text);
}

void Stream::DocumentType(void* stream, const xmlChar* /*name*/, const xmlChar* /*id*/,
                          const xmlChar* /*place*/) noexcept {
    Of(stream).Handle([&] { Of(stream).Refuse("带有文档类型声明（DOCTYPE）"); });
}

void Stream::Run() {
    mContext.reset(
        xmlCreateIOParserCtxt(nullptr, nullptr, Read, nullptr, this, XML_CHAR_ENCODING_NONE));
    if (mFailure) std::rethrow_exception(mFailure);
    if (!mContext) throw std::bad_alloc();
    // Nothing is fetched, and what is wrong is not written to the console. Without a document type
    // there are no entities but the five of the language, whose characters are wanted.
    xmlCtxtUseOptions(mContext.get(), XML_PARSE_NONET | XML_PARSE_NOENT | XML_PARSE_NOERROR |
                                          XML_PARSE_NOWARNING | XML_PARSE_COMPACT);
    xmlSAXHandler& calls = *mContext->sax;
    calls = {};
    calls.initialized = XML_SAX2_MAGIC;
    calls.internalSubset = DocumentType;
    calls.startElementNs = Begin;
    calls.endElementNs = End;
    calls.characters = Text;
    calls.cdataBlock = Text;
    calls.comment = Comment;
    calls.processingInstruction = Instruction;
    mContext->userData = this;
    xmlParseDocument(mContext.get());
    if (mFailure) std::rethrow_exception(mFailure);
    if (mContext->wellFormed == 0) {
        Refuse("第 " + std::to_string(xmlSAX2GetLineNumber(mContext.get())) + " 行不是有效的 XML");
    }
    mArchive.Finish();
}

}  // namespace

std::string_view XmlAttributes::Find(std::string_view name, std::string_view space) const {
    // For each: name, prefix, namespace, and both ends of the value.
    constexpr std::size_t kParts = 5;
    const unsigned char** attribute = mFirst;
    for (std::size_t at = 0; at < mCount; ++at, attribute += kParts) {
        if (!IsNamed(attribute[0], name)) continue;
        const std::string_view known = ViewOf(attribute[2]);
        if (known.empty() != space.empty() || !known.ends_with(space)) continue;
        return {reinterpret_cast<const char*>(attribute[3]),
                static_cast<std::size_t>(attribute[4] - attribute[3])};
    }
    return {};
}

std::string_view WithoutXmlBlanks(std::string_view text) {
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool IsTrue(std::string_view value) {
    return value == "1" || value == "true";
}

int NumberOf(std::string_view value, int most) {
    int number = 0;
    const char* end = value.data() + value.size();
    const auto [rest, failure] = std::from_chars(value.data(), end, number);
    if (failure != std::errc() || rest != end || number < 0 || number > most) {
        throw Refusal("已损坏：“" + std::string(value.substr(0, 32)) + "”不是应有的数字");
    }
    return number;
}

void ReadXml(ZipArchive& archive, std::string_view name, std::string_view root,
             XmlHandler& handler) {
    archive.Open(name);
    try {
        Stream(archive, name, root, handler).Run();
    } catch (...) {
        archive.Close();
        throw;
    }
}

}  // namespace kelvane::tables
