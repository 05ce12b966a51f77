#pragma once

#include "foundation/Object.h"
#include "foundation/String.h"

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

namespace orlo {

namespace uri {
struct CParts;
}

/// The location of a file or resource. The raw form of a component is what stands in the text, with escapes; the other
/// is for people. An absent component is a null text.
class IURI : public virtual IComparable {
public:
  virtual String getScheme() const = 0;
  virtual bool hasScheme() const = 0;

  /// Everything behind the scheme, as it was given.
  virtual String getSchemeSpecificPart() const = 0;
  virtual String getRawSchemeSpecificPart() const = 0;
  virtual bool hasSchemeSpecificPart() const = 0;

  /// User, host and port.
  virtual String getAuthority() const = 0;
  virtual String getRawAuthority() const = 0;
  virtual bool hasAuthority() const = 0;
  virtual String getUserInfo() const = 0;
  virtual String getRawUserInfo() const = 0;
  virtual bool hasUserInfo() const = 0;
  /// Host and port are never escaped: both forms are the same.
  virtual String getHost() const = 0;
  virtual String getRawHost() const = 0;
  virtual bool hasHost() const = 0;
  virtual String getPortText() const = 0;
  virtual String getRawPortText() const = 0;
  virtual bool hasPortText() const = 0;
  /// -1 if there is none.
  virtual std::int32_t getPort() const = 0;

  /// Without dot segments, but for the ".." that lead out of it.
  virtual String getPath() const = 0;
  virtual String getRawPath() const = 0;
  virtual bool hasPath() const = 0;
  /// The last segment of a path that doesn't end with "/".
  virtual String getFileName() const = 0;
  virtual String getRawFileName() const = 0;
  virtual bool hasFileName() const = 0;
  /// The file name before its last ".", and behind it.
  virtual String getBaseName() const = 0;
  virtual String getRawBaseName() const = 0;
  virtual bool hasBaseName() const = 0;
  virtual String getExtension() const = 0;
  virtual String getRawExtension() const = 0;
  virtual bool hasExtension() const = 0;
  /// The path up to and including its last "/".
  virtual String getFolder() const = 0;
  virtual String getRawFolder() const = 0;
  virtual bool hasFolder() const = 0;

  virtual String getQuery() const = 0;
  virtual String getRawQuery() const = 0;
  virtual bool hasQuery() const = 0;
  virtual String getFragment() const = 0;
  virtual String getRawFragment() const = 0;
  virtual bool hasFragment() const = 0;

  /// Has a scheme.
  virtual bool isAbsolute() const = 0;
  /// Has a path or could have one; the others are nothing but a scheme and the part specific to it.
  virtual bool isHierarchical() const = 0;

  /// Null without a path.
  virtual P<IURI> getFolderURI() const = 0;
  /// The folder that holds this file or folder; null without a path and for the root.
  virtual P<IURI> getParentURI() const = 0;
  /// What this one means when it stands in a document at base.
  virtual P<IURI> resolve(const PC<IURI>& base) const = 0;
  /// What has to stand in a document at base to mean this one; this one itself where nothing shorter does.
  virtual P<IURI> makeRelative(const PC<IURI>& base) const = 0;

  /// As IPathes has it.
  virtual String getLocalPath() const = 0;
  /// "file:///" and the local path, not escaped.
  virtual String toFileURI() const = 0;
};

/// Never changes; parsed once, by the grammar of RFC 2396. Any text is a URI, but a port that is no number throws
/// CParseError. The description of a URI is its text.
class CURI : public CObject, public IURI {
public:
  explicit CURI(const String& text);
  /// What stands behind the scheme is taken as it is.
  CURI(const String& scheme, const String& schemeSpecificPart);
  /// From components as people write them, which are escaped here; null for those that aren't there. A port of -1 is
  /// none.
  CURI(const String& scheme, const String& authority, const String& path, const String& query, const String& fragment);
  CURI(const String& scheme, const String& host, std::int32_t port, const String& userInfo, const String& path,
       const String& query, const String& fragment);
  /// What the text means in a document at base.
  CURI(const IURI& base, const String& relative);
  /// From components in their raw form.
  explicit CURI(const uri::CParts& parts);
  CURI(const CURI& other);
  CURI& operator=(const CURI&) = delete;

  String getDescription() const override { return text_; }
  int compare(PC<IBase> other) const override;

  String getScheme() const override { return components_.scheme; }
  bool hasScheme() const override { return components_.scheme.get() != nullptr; }
  String getSchemeSpecificPart() const override { return components_.schemeSpecificPart.getDecoded(); }
  String getRawSchemeSpecificPart() const override { return components_.schemeSpecificPart.getRaw(); }
  bool hasSchemeSpecificPart() const override { return components_.schemeSpecificPart.isThere(); }
  String getAuthority() const override { return components_.authority.getDecoded(); }
  String getRawAuthority() const override { return components_.authority.getRaw(); }
  bool hasAuthority() const override { return components_.authority.isThere(); }
  String getUserInfo() const override { return components_.userInfo.getDecoded(); }
  String getRawUserInfo() const override { return components_.userInfo.getRaw(); }
  bool hasUserInfo() const override { return components_.userInfo.isThere(); }
  String getHost() const override { return components_.host; }
  String getRawHost() const override { return components_.host; }
  bool hasHost() const override { return components_.host.get() != nullptr; }
  String getPortText() const override { return components_.portText; }
  String getRawPortText() const override { return components_.portText; }
  bool hasPortText() const override { return components_.portText.get() != nullptr; }
  std::int32_t getPort() const override { return components_.port; }
  String getPath() const override { return components_.path.getDecoded(); }
  String getRawPath() const override { return components_.path.getRaw(); }
  bool hasPath() const override { return components_.path.isThere(); }
  String getFileName() const override { return components_.fileName.getDecoded(); }
  String getRawFileName() const override { return components_.fileName.getRaw(); }
  bool hasFileName() const override { return components_.fileName.isThere(); }
  String getBaseName() const override { return components_.baseName.getDecoded(); }
  String getRawBaseName() const override { return components_.baseName.getRaw(); }
  bool hasBaseName() const override { return components_.baseName.isThere(); }
  String getExtension() const override { return components_.extension.getDecoded(); }
  String getRawExtension() const override { return components_.extension.getRaw(); }
  bool hasExtension() const override { return components_.extension.isThere(); }
  String getFolder() const override { return components_.folder.getDecoded(); }
  String getRawFolder() const override { return components_.folder.getRaw(); }
  bool hasFolder() const override { return components_.folder.isThere(); }
  String getQuery() const override { return components_.query.getDecoded(); }
  String getRawQuery() const override { return components_.query.getRaw(); }
  bool hasQuery() const override { return components_.query.isThere(); }
  String getFragment() const override { return components_.fragment.getDecoded(); }
  String getRawFragment() const override { return components_.fragment.getRaw(); }
  bool hasFragment() const override { return components_.fragment.isThere(); }

  bool isAbsolute() const override { return !components_.relative; }
  bool isHierarchical() const override { return components_.hierarchical; }

  P<IURI> getFolderURI() const override;
  P<IURI> getParentURI() const override;
  P<IURI> resolve(const PC<IURI>& base) const override;
  P<IURI> makeRelative(const PC<IURI>& base) const override;
  String getLocalPath() const override;
  String toFileURI() const override;

private:
  // Null pointers make null strings, and cost nothing as long as nobody asks.
  struct CComponent {
    P<IString> raw;
    /// Null where there is nothing to decode.
    P<IString> other;
    bool isThere() const { return raw.get() != nullptr; }
    String getRaw() const { return raw; }
    String getDecoded() const { return other ? other : raw; }
  };
  struct CComponents {
    P<IString> scheme;
    CComponent schemeSpecificPart;
    CComponent authority;
    CComponent userInfo;
    P<IString> host;
    P<IString> portText;
    std::int32_t port = -1;
    CComponent path;
    CComponent fileName;
    CComponent baseName;
    CComponent extension;
    CComponent folder;
    CComponent query;
    CComponent fragment;
    bool relative = true;
    bool hierarchical = true;
  };

  static CComponent componentOf(const String& text, const std::optional<std::u16string_view>& part);
  /// The same of a part of a component.
  static CComponent componentIn(std::u16string_view whole, const CComponent& wholeComponent, const String& text,
                                const std::optional<std::u16string_view>& part);
  void takeComposed(const uri::CParts& parts);
  void take(const uri::CParts& parts, const String& text);
  void takeAuthority(std::u16string_view authority, const String& text);
  void takePath(std::u16string_view path, const String& text);

  String text_;
  CComponents components_;
};

/// As the constructors of CURI.
template <class... Args>
P<IURI> createURI(Args&&... args) {
  return makeObject<CURI>(std::forward<Args>(args)...);
}

bool operator==(const IURI& left, const IURI& right);

}  // namespace orlo
