#pragma once

#include "KLXExport.h"

#include <string>
#include <vector>

struct _xmlAttr;
struct _xmlDoc;
struct _xmlNode;

/// The marker file of the log-buffer switches: "/opt/etc/disable_dlogutil". Set once when the
/// library is loaded.
extern KLX_API const std::string DlogFilePath;

/// Helpers that the library shares with other programs on the device: Base64, files, the log
/// buffer's switches, and a thin face of libxml2.
///
/// All members are static and keep no state, so any thread may call any of them at any time; an XML
/// node or document must not be changed by two threads at once.
class KLX_API KLXCommonUtil {
public:
    KLXCommonUtil() = delete;

    /// Encodes bytes as Base64 (standard alphabet, "=" padding) in one line without a line break.
    /// @param data bytes to encode; may be null when @p len is 0
    /// @param len  number of bytes
    /// @return the text, a third longer than the bytes; "" for none
    /// @throws KLX::Exception "Could not allocate OpenSSL BIO" or "Could not allocate memory for
    ///         BIO"
    /// @code
    /// std::string text = KLXCommonUtil::encodeBase64("abc", 3);   // "YWJj"
    /// @endcode
    static std::string encodeBase64(const void* data, std::size_t len);

    /// Decodes one unbroken line of Base64.
    /// @param text   the Base64 text; need not be terminated
    /// @param len    its length in bytes
    /// @param outLen receives the number of decoded bytes: 0 when nothing valid was decoded, or a
    ///               negative number seen as an unsigned one; always check it
    /// @return a zeroed buffer of @p len bytes (one byte when @p len is 0 or less) that starts with
    ///         the decoded bytes; the caller releases it with `free`. Null when memory ran out.
    /// @code
    /// unsigned int size = 0;
    /// std::unique_ptr<unsigned char, decltype(&free)> bytes(
    ///     KLXCommonUtil::decodeBase64("YWJj", 4, size), &free);   // "abc", size 3
    /// @endcode
    static unsigned char* decodeBase64(const char* text, int len, unsigned int& outLen);

    /// Reads the first word of a text file; what follows the first white space is ignored.
    /// @param path where the file is
    /// @return the word; "" for an empty file
    /// @throws KLX::Exception "file[%s] open failed" when the file cannot be opened or read
    /// @code
    /// std::string server = KLXCommonUtil::readStrFromFile("/opt/etc/server");
    /// @endcode
    static std::string readStrFromFile(std::string path);

    /// Writes exactly @p content to a file, which is created or emptied first.
    /// @param content what to write; may hold any bytes
    /// @param path    where the file is to be
    /// @throws KLX::Exception "file[%s] open failed" when the file cannot be opened, written whole
    ///         or closed; it may then hold a part
    /// @code
    /// KLXCommonUtil::writeStrToFile("production\n", "/opt/etc/server");
    /// @endcode
    static void writeStrToFile(std::string content, std::string path);

    /// Finds the number in a text.
    /// @param text what to search
    /// @return the stretch from the first digit of @p text to its last one, both included:
    ///         "ver 12.34 b" gives "12.34"
    /// @throws std::out_of_range when the text has no digit
    /// @code
    /// std::string number = KLXCommonUtil::extractLastNumbers("HDMI2");   // "2"
    /// @endcode
    static std::string extractLastNumbers(const std::string& text);

    /// Turns the platform's persistent log buffer on and creates the marker file. Does nothing on a
    /// debug image ("/etc/debug" exists). Never throws; results are only logged.
    /// @code
    /// KLXCommonUtil::EnableDlogBuffer();
    /// @endcode
    static void EnableDlogBuffer();

    /// Turns the buffer off and removes the marker file; otherwise as `EnableDlogBuffer`.
    /// @code
    /// KLXCommonUtil::DisableDlogBuffer();
    /// @endcode
    static void DisableDlogBuffer();

    /// Sets an attribute, replacing the value of one that is already there.
    /// @param node  the element, not null
    /// @param name  the attribute's name
    /// @param value its text, in UTF-8 and without a character that XML has no place for
    /// @return what libxml2 returned: the attribute, owned by the node; null on failure
    /// @code
    /// KLXCommonUtil::xmlSetAttribute(element, "name", "Backlight");
    /// @endcode
    static _xmlAttr* xmlSetAttribute(_xmlNode* node, const char* name, const char* value);

    /// Reads an attribute.
    /// @param node the element
    /// @param name the attribute's name
    /// @return the attribute's value
    /// @throws KLX::Exception "Failed to get attribute: " and the name, when there is none, or no
    ///         element
    /// @code
    /// std::string name = KLXCommonUtil::xmlGetAttribute(element, "name");   // "Backlight"
    /// @endcode
    static std::string xmlGetAttribute(_xmlNode* node, const char* name);

    /// Evaluates an XPath expression with @p node as the context node, so that "*[@name='a']"
    /// searches its children.
    /// @param node  where to search from
    /// @param xpath the expression
    /// @return the nodes found, in document order, owned by the document; empty when none match
    /// @throws KLX::Exception "xmlNodePtr is null", "xPathContextPtr is null", or "Failed to
    ///         evaluate XPath: " and the expression
    /// @code
    /// for (xmlNodePtr menu : KLXCommonUtil::xmlFindNodes(root, "deviceInfo/menu")) {
    ///     std::cout << KLXCommonUtil::xmlGetAttribute(menu, "name") << '\n';
    /// }
    /// @endcode
    static std::vector<_xmlNode*> xmlFindNodes(_xmlNode* node, const std::string& xpath);

    /// Serialises a document, indented and in the encoding "utf-8".
    /// @param doc the document, which stays the caller's
    /// @param out receives the text; untouched on failure
    /// @throws KLX::Exception when a buffer cannot be made or the document cannot be written
    /// @code
    /// std::string text;
    /// KLXCommonUtil::xmlDocumentToString(document, text);
    /// @endcode
    static void xmlDocumentToString(_xmlDoc* doc, std::string& out);
};
