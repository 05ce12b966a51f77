#include "graphics/model/Base64Resources.h"

#include "graphics/geometry/XmlNode.h"
#include "graphics/geometry/XmlValues.h"
#include "graphics/model/Base64.h"
#include "graphics/model/Picture.h"
#include "graphics/model/RichTextXml.h"

#include <wx/filename.h>
#include <wx/image.h>
#include <wx/mstream.h>
#include <wx/richtext/richtextbuffer.h>

namespace graphics {

namespace {

wxXmlNode& WriteBytes(wxXmlNode& node, const wxString& name, std::span<const unsigned char> bytes) {
  wxXmlNode& child = xml::AppendChild(node, name);
  child.AddChild(new wxXmlNode(wxXML_CDATA_SECTION_NODE, "base64", wxString(EncodeBase64(bytes))));
  return child;
}

wxXmlNode& WriteStream(wxXmlNode& node, const wxString& name, const wxMemoryOutputStream& stream) {
  const auto* start = static_cast<const unsigned char*>(stream.GetOutputStreamBuffer()->GetBufferStart());
  return WriteBytes(node, name, {start, static_cast<std::size_t>(stream.GetLength())});
}

std::vector<unsigned char> ReadChildBytes(const wxXmlNode& node, const wxString& name) {
  const wxXmlNode* child = xml::FindChild(node, name);
  return child ? DecodeBase64Text(child->GetNodeContent()) : std::vector<unsigned char>();
}

}  // namespace

void CBase64Resources::WriteRichText(wxXmlNode& node, const wxString& name, wxRichTextBuffer& text) {
  wxMemoryOutputStream stream;
  if (SaveRichText(text, stream)) WriteStream(node, name, stream);
}

void CBase64Resources::WriteBitmap(wxXmlNode& node, const wxString& name, const wxBitmap& bitmap,
                                   const wxFileName& file) {
  if (TakesFile(file) && file.FileExists()) return;
  if (!bitmap.IsOk()) return;
  const wxImage image = bitmap.ConvertToImage();
  const bool asPng = image.HasMask() || image.HasAlpha();
  wxMemoryOutputStream stream;
  if (!image.SaveFile(stream, asPng ? wxBITMAP_TYPE_PNG : wxBITMAP_TYPE_JPEG)) return;
  xml::WriteText(WriteStream(node, name, stream), "extension", asPng ? "png" : "jpg");
}

void CBase64Resources::WriteResource(wxXmlNode& node, const wxString& type, const IReusableResource* resource) {
  shared_.Write(node, type, resource, *this);
}

void CBase64Resources::WriteBuffer(wxXmlNode& node, const wxString& name, const orlo::IMemoryBlock& buffer) {
  WriteBytes(node, name, {reinterpret_cast<const unsigned char*>(buffer.getData()), buffer.getSize()});
}

std::unique_ptr<wxRichTextBuffer> CBase64Resources::ReadRichText(const wxXmlNode& node, const wxString& name) {
  const auto bytes = ReadChildBytes(node, name);
  return bytes.empty() ? nullptr : LoadRichText(bytes);
}

std::unique_ptr<wxBitmap> CBase64Resources::ReadBitmap(const wxXmlNode& node, const wxString& name, wxFileName& file) {
  if (TakesFile(file)) return pictures_.ReadFile(file);
  const wxXmlNode* child = xml::FindChild(node, name);
  if (!child) return nullptr;
  wxString extension;
  xml::ReadText(*child, "extension", extension);
  const wxBitmapType type = PictureTypeOf(extension);
  if (type == wxBITMAP_TYPE_INVALID || type == wxBITMAP_TYPE_ICO) return nullptr;
  return ReadBitmapOfType(node, name, type, file);
}

std::unique_ptr<wxBitmap> CBase64Resources::ReadBitmapOfType(const wxXmlNode& node, const wxString& name,
                                                             wxBitmapType type, wxFileName& file) {
  if (TakesFile(file)) return pictures_.ReadFile(file);
  file.Clear();
  return pictures_.Read(ReadChildBytes(node, name), type);
}

orlo::P<orlo::IMemoryBlock> CBase64Resources::ReadBuffer(const wxXmlNode& node, const wxString& name) {
  const auto bytes = ReadChildBytes(node, name);
  if (bytes.empty()) return nullptr;
  auto block = orlo::makeObject<orlo::CMemoryBlock>(bytes.size());
  block->assign(bytes.data(), bytes.size());
  return block;
}

orlo::P<IReusableResource> CBase64Resources::ReadResource(const wxXmlNode& node, const wxString& type,
                                                          const orlo::P<IReusableResource>& resource) {
  return shared_.Read(node, type, resource, *this);
}

bool CBase64Resources::TakesFile(const wxFileName& file) const {
  return useFiles_ && file.IsOk();
}

}  // namespace graphics
