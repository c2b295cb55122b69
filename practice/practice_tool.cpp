/// Stands in for an author's tools: a compiler, a game player and a text extractor in one program,
/// selected by the name that it is called by. It records how it was called and writes the files
/// that such a tool writes. Of the language it only knows that texts are in double quotes.

#include <algorithm>
#include <fstream>
#include <functional>
#include <iostream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <stdexcept>

#include "record.h"

namespace {

using practice::Record;

/// The parsed command line.
struct Request {
    std::string stem;                   ///< of the file to work on
    std::vector<std::string> options;   ///< in the order given, each followed by its value
    std::vector<std::string> includes;  ///< the compiler's include folders
    std::optional<std::string> output;  ///< the output name given to the extractor

    [[nodiscard]] bool has(const std::string& option) const {
        return std::ranges::find(options, option) != options.end();
    }
};

/// The options of a tool: without a value, or with the next word as value.
struct Options {
    std::set<std::string> alone;
    std::set<std::string> withValue;
    bool output = false;  ///< takes "-OF" followed by a name
};

Request parse(const std::vector<std::string>& words, const Options& known) {
    Request request;
    for (auto word = words.begin(); word != words.end(); ++word) {
        if (known.output && word->starts_with("-OF")) {
            request.output = word->substr(3);
            if (request.output->empty()) throw std::runtime_error("there is no name after -OF");
        } else if (known.withValue.contains(*word)) {
            const std::string option = *word;
            if (++word == words.end()) throw std::runtime_error("nothing follows " + option);
            if (option == "-Include") request.includes.push_back(*word);
            request.options.push_back(option + ' ' + *word);
        } else if (known.alone.contains(*word)) {
            request.options.push_back(*word);
        } else if (word->starts_with('-')) {
            throw std::runtime_error("there is no option " + *word);
        } else if (!request.stem.empty()) {
            throw std::runtime_error("two files named: " + request.stem + " and " + *word);
        } else {
            request.stem = *word;
        }
    }
    if (request.stem.empty()) throw std::runtime_error("no file named");
    return request;
}

struct Source {
    std::string file;
    std::string text;
};

std::optional<std::string> read(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    if (!in) return {};
    return std::string(std::istreambuf_iterator<char>(in), {});
}

/// Opens the first of the files that can be read.
Source readFirst(const std::vector<std::string>& files) {
    std::string names;
    for (const std::string& file : files) {
        if (auto text = read(file)) return {file, *text};
        names += (names.empty() ? "" : " or ") + file;
    }
    throw std::runtime_error("there is no file " + names + " in " +
                             std::filesystem::current_path().string());
}

Source readSource(const std::string& stem) {
    return readFirst({stem + ".kel", stem + ".kelm"});
}

void write(const std::string& file, const std::string& text) {
    std::ofstream out(file, std::ios::binary);
    out << text << std::flush;
    if (!out) throw std::runtime_error("cannot write " + file);
    std::cout << "Wrote " << file << ".\n";
}

struct QuotedText {
    std::size_t lineNumber;
    std::string text;
};

/// Returns the texts in double quotes, each on one line.
std::vector<QuotedText> quotedTexts(const std::string& source) {
    std::vector<QuotedText> texts;
    std::size_t lineNumber = 1;
    bool inside = false;
    for (const char letter : source) {
        if (letter == '"') {
            inside = !inside;
            if (inside) texts.push_back({lineNumber, {}});
        } else if (inside && letter != '\r') {
            texts.back().text += letter == '\n' ? ' ' : letter;
        }
        if (letter == '\n') ++lineNumber;
    }
    return texts;
}

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words)
        text += ' ' + word;
    return text;
}

void compile(const Record& record) {
    const Request request = parse(record.arguments(), {{"-Pack", "-Debug", "-Full", "-List"},
                                                       {"-Include", "-CharSet", "-Height"}});
    const Source source = readSource(request.stem);
    const auto texts = quotedTexts(source.text);

    std::string listing = "Practice compiler\n\nSource:   " + source.file;
    listing += "\nOptions: " + joined(request.options);
    listing += "\nLines:    " + std::to_string(std::ranges::count(source.text, '\n'));
    listing += "\nTexts:    " + std::to_string(texts.size()) + "\n";
    for (const std::string& folder : request.includes)
        if (!std::filesystem::is_directory(folder)) listing += "Not found: " + folder + "\n";
    if (request.has("-Full")) listing += "\n" + source.text;

    std::string game;
    for (const QuotedText& quoted : texts)
        game += quoted.text + "\n";

    write(request.stem + ".lis", listing);
    write(request.stem + ".kcd", game);
}

/// Prints the game's texts, then reads commands until "quit" or end of input. Writes the log of the
/// commands at the end, since the input may be a log of the same name.
void play(const Record& record) {
    const Request request = parse(record.arguments(), {{"-d", "-t", "-s", "-L"}, {}});
    const Source game = readFirst({request.stem + ".kcd"});
    std::cout << game.text << "\nType what you like, and quit to end.\n";

    std::string log;
    for (std::string command;
         std::cout << "\n> " << std::flush && std::getline(std::cin, command);) {
        if (command.ends_with('\r')) command.pop_back();
        record.addInput(command);
        log += command + "\n";
        if (command == "quit") break;
        std::cout << "You said: " << command << "\n";
    }
    std::cout << "\nGood-bye.\n";
    if (request.has("-L")) write(request.stem + ".log", log);
}

void extract(const Record& record) {
    const Request request =
        parse(record.arguments(),
              {{"-OO", "-FF", "-FD", "-FR", "-PC", "-PQ", "-PD", "-PR", "-NL"}, {}, true});
    const Source source = readSource(request.stem);
    const std::string output = request.output.value_or(request.stem + ".txt");
    if (std::filesystem::exists(output) && !request.has("-OO"))
        throw std::runtime_error(output + " exists; -OO lets it be overwritten");

    std::string text;
    for (const QuotedText& quoted : quotedTexts(source.text)) {
        if (!request.has("-NL")) text += std::to_string(quoted.lineNumber) + "\t";
        text += quoted.text + "\n";
    }
    write(output, text);
}

}  // namespace

int main(int argumentCount, char** arguments) {
    const std::map<std::string, std::function<void(const Record&)>> tools = {
        {"kelm", compile}, {"winkrun", play}, {"krun", play}, {"klex", extract}};
    const Record record(argumentCount, arguments);
    try {
        const auto tool = tools.find(record.name());
        if (tool == tools.end()) throw std::runtime_error("no tool has this name");
        tool->second(record);
        return 0;
    } catch (const std::exception& error) {
        std::cout << std::flush;
        std::cerr << record.name() << ": " << error.what() << "\n";
        return 1;
    }
}
