#include "bench/form_text.h"

#include <map>
#include <pugixml.hpp>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "platform/standin/resources.h"

namespace bench {

namespace {

struct Element {
  const char* widgetClass;
  const char* layoutClass;  // null for a control
  const char* textProperty;
};

const std::map<std::string_view, Element> kElements = {
    {"column", {"QWidget", "QVBoxLayout", nullptr}},
    {"row", {"QWidget", "QHBoxLayout", nullptr}},
    {"grid", {"QWidget", "QGridLayout", nullptr}},
    {"group", {"QGroupBox", "QVBoxLayout", "title"}},
    {"label", {"QLabel", nullptr, "text"}},
    {"number", {"QDoubleSpinBox", nullptr, nullptr}},
    {"checkbox", {"QCheckBox", nullptr, "text"}},
    {"radio", {"QRadioButton", nullptr, "text"}},
    {"button", {"QPushButton", nullptr, "text"}},
    {"text-button", {"QPushButton", nullptr, "text"}},
};

/// The English text of a key; empty if the attribute is missing.
std::string Text(const pugi::xml_node& source, const char* attribute) {
  const std::string key = source.attribute(attribute).value();
  return key.substr(key.find('=') + 1);
}

void AddProperty(pugi::xml_node widget, const char* name, const char* type, const char* value) {
  pugi::xml_node property = widget.append_child("property");
  property.append_attribute("name") = name;
  property.append_child(type).text() = value;
}

void AddWidget(pugi::xml_node parent, const pugi::xml_node& source);

void AddLayout(pugi::xml_node widget, const pugi::xml_node& source, const char* layoutClass) {
  pugi::xml_node layout = widget.append_child("layout");
  layout.append_attribute("class") = layoutClass;
  const int columns = source.attribute("columns").as_int(1);
  int place = 0;
  for (const pugi::xml_node& child : source.children()) {
    pugi::xml_node item = layout.append_child("item");
    if (std::string_view(layoutClass) == "QGridLayout") {
      item.append_attribute("row") = place / columns;
      item.append_attribute("column") = place % columns;
    }
    ++place;
    if (std::string_view(child.name()) == "space") {
      item.append_child("spacer");
    } else {
      AddWidget(item, child);
    }
  }
}

void AddWidget(pugi::xml_node parent, const pugi::xml_node& source) {
  const Element& element = kElements.at(source.name());
  pugi::xml_node widget = parent.append_child("widget");
  widget.append_attribute("class") = element.widgetClass;
  if (source.attribute("id")) widget.append_attribute("name") = source.attribute("id").value();
  if (element.textProperty) {
    AddProperty(widget, element.textProperty, "string", Text(source, "caption").c_str());
  }
  if (const std::string help = Text(source, "help"); !help.empty()) {
    AddProperty(widget, "toolTip", "string", help.c_str());
  }
  if (source.attribute("for")) {
    AddProperty(widget, "buddy", "cstring", source.attribute("for").value());
  }
  if (element.layoutClass) AddLayout(widget, source, element.layoutClass);
}

}  // namespace

QByteArray MosaicFormText() {
  pugi::xml_document layout;
  const auto file = standin::ResourceFolders::OfProgram().plugin / "layouts" / "16301.xml";
  if (!layout.load_file(file.c_str())) throw std::runtime_error("cannot read " + file.string());

  pugi::xml_document form;
  pugi::xml_node ui = form.append_child("ui");
  ui.append_attribute("version") = "4.0";
  ui.append_child("class").text() = "CreateTesserae";
  pugi::xml_node dialog = ui.append_child("widget");
  dialog.append_attribute("class") = "QDialog";
  dialog.append_attribute("name") = "CreateTesserae";
  AddProperty(dialog, "windowTitle", "string", "Create Tesserae");
  AddLayout(dialog, layout.child("sheet"), "QVBoxLayout");
  std::ostringstream text;
  form.save(text);
  return QByteArray::fromStdString(text.str());
}

}  // namespace bench
