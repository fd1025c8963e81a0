-- A page of docs/ as a man page: what a manual has by custom, and a terminal of 80 columns needs, is made of what stands
-- on the page. Run by pandoc, with this metadata:
--
--   title, section, line   of the page: zelmora-check, 1, what it does in a few words
--   pages                  all pages that are made, as "checking.md zelmora-check 1;..."
--
-- The page's part before its first heading becomes DESCRIPTION, its blocks of the language "synopsis" SYNOPSIS, and each
-- heading of the second level a section. Links to pages become references; SEE ALSO lists them.

local stringify = pandoc.utils.stringify
local upper = require("text").upper

-- Sections that stand at the end by custom, in this order.
local last_sections = {"Options", "Exit status", "Environment", "Files"}
local text_width = 70 -- of a line between the margins, in a terminal of 80 columns

local title        -- of this page
local pages = {}   -- by file name: {name, section}
local linked = {}  -- by what SEE ALSO calls it: {name, section}; without a section it is a file of the documents

-- Links --------------------------------------------------------------------------------------------------------------

-- Before a word: no line break tears it at a hyphen. Within a word it would be a hyphen of its own.
local unbroken = pandoc.RawInline("man", "\\%")

-- A name in bold, and the word that it stands in, in one piece.
local function whole(name)
    return {unbroken, pandoc.Strong(name)}
end

local function reference(page)
    local name = pandoc.List(whole(page.name))
    name:insert(pandoc.Str("(" .. page.section .. ")"))
    return name
end

-- The page or the document that a link of this page leads to; nil for one within the page or to another file.
local function target_of(link)
    local file = link.target:gsub("#.*", "")
    local document = file:match("([%w-]+%.md)$")
    if not document or document == "README.md" then return nil end
    local page = pages[document] or {name = document}
    return page.name ~= title and page or nil
end

-- Its text; behind it the page that it leads to. Where the text is but the page's name, the reference alone.
local function without_link(link)
    local page = target_of(link)
    if not page then return link.content end
    linked[page.name] = page
    local text = stringify(link)
    if page.section and (text:match("%.md$") or text == page.name) then return reference(page) end
    if not page.section or text:find(page.name, 1, true) then return link.content end
    local content = pandoc.List(link.content)
    content:extend({pandoc.Space(), pandoc.Str("(")})
    content:extend(reference(page))
    content:insert(pandoc.Str(")"))
    return content
end

-- Texts --------------------------------------------------------------------------------------------------------------

local inlines = {
    Link = without_link,
    Image = function() return {} end,
    Code = function(code) return whole(code.text) end,
}

local function parts_words(inline)
    return inline.t == "Space" or inline.t == "SoftBreak" or inline.t == "LineBreak"
        or (inline.t == "RawInline" and inline.text:find("\n"))
end

-- What keeps a name in one piece moves to the beginning of its word, before a bracket, and stands there once.
local function before_words(list)
    local moved = pandoc.List()
    local beginning = 1
    for _, inline in ipairs(list) do
        if inline ~= unbroken then
            moved:insert(inline)
        elseif moved[beginning] ~= unbroken then
            moved:insert(beginning, unbroken)
        end
        if parts_words(inline) then beginning = #moved + 1 end
    end
    return moved
end

-- A call as manuals set it: what is typed is bold, what stands for something else is in italics.
local function as_call(text)
    local call = pandoc.List()
    for blanks, word in text:gmatch("(%s*)([%w-]*[^%w%s-]*)") do
        local name, rest = word:match("^([%w-]*)(.*)$")
        if blanks ~= "" then call:insert(pandoc.Space()) end
        if name:match("^%u+$") then
            call:insert(pandoc.Emph(name))
        elseif name ~= "" then
            call:insert(pandoc.Strong(name))
        end
        -- No sentence ends here, whatever the dots.
        if rest ~= "" then call:insert(pandoc.RawInline("man", rest .. "\\&")) end
    end
    return call
end

-- Lines that stay lines.
local function as_calls(block)
    local lines = pandoc.List()
    for line in block.text:gmatch("[^\n]+") do
        if #lines > 0 then lines:insert(pandoc.RawInline("man", "\n.br\n")) end
        lines:extend(as_call(line))
    end
    return pandoc.Para(lines)
end

-- A block as it stands; two columns to the right, where most of them have room.
local function as_display(block)
    local text = pandoc.write(pandoc.Pandoc({block}), "man"):gsub("^%.IP\n%.nf\n\\f%[C%]\n", ""):gsub("\\f%[R%]\n%.fi%s*$", "")
    return pandoc.RawBlock("man", ".PP\n.in +2n\n.nf\n" .. text .. ".fi\n.in")
end

-- Tables -------------------------------------------------------------------------------------------------------------

local function inlines_of(cell)
    return pandoc.utils.blocks_to_inlines(cell)
end

local function width_of(cell)
    return utf8.len(stringify(cell))
end

-- The greatest width of each column, and what all of them take side by side.
local function widths_of(rows, gap)
    local widths, whole = {}, 0
    for column = 1, #rows[1] do
        widths[column] = 0
        for _, row in ipairs(rows) do
            widths[column] = math.max(widths[column], width_of(row[column]))
        end
        whole = whole + widths[column] + (column > 1 and gap or 0)
    end
    return widths, whole
end

-- A cell in the manual's own language, on one line.
local function as_roff(cell)
    local text = pandoc.write(pandoc.Pandoc({pandoc.Plain(inlines_of(cell))}), "man")
    return (text:gsub("%s+", " "):gsub("^ ", ""):gsub(" $", ""))
end

local function as_table(rows, columns)
    local lines = {".TS", "tab(\t);", string.rep("lb", columns, " "), string.rep("l", columns, " ") .. "."}
    for _, row in ipairs(rows) do
        local cells = {}
        for column = 1, columns do cells[column] = as_roff(row[column]) end
        lines[#lines + 1] = table.concat(cells, "\t")
    end
    lines[#lines + 1] = ".TE"
    return pandoc.RawBlock("man", table.concat(lines, "\n"))
end

-- A row as a term and what there is to say of it: what the widest column says first, then the others by their headings.
local function as_item(row, headings, main)
    local heading = stringify(headings[1])
    local is_call = heading == "Option" or heading == "Call"
    local term = is_call and as_call(stringify(row[1])) or inlines_of(row[1])
    local said = pandoc.List(inlines_of(row[main]))
    for column = 2, #row do
        if column ~= main and width_of(row[column]) > 0 then
            said:insert(pandoc.RawInline("man", "\n.br\n"))
            said:extend({pandoc.Str(stringify(headings[column]) .. ":"), pandoc.Space()})
            said:extend(inlines_of(row[column]))
        end
    end
    return {term, {pandoc.Plain(said)}}
end

local function widest_behind_first(widths)
    local widest = 2
    for column = 3, #widths do
        if widths[column] > widths[widest] then widest = column end
    end
    return widest
end

-- A table that has room stays one; of any other each row becomes a term with its explanation. So do options and statuses,
-- as in any manual.
local function without_width(wide)
    local simple = pandoc.utils.to_simple_table(wide)
    local rows = pandoc.List({simple.headers})
    rows:extend(simple.rows)
    local widths, whole = widths_of(rows, 3)
    local first = stringify(simple.headers[1])
    if whole <= text_width and first ~= "Option" and first ~= "Call" and not first:match("[Ss]tatus$") then
        return as_table(rows, #widths)
    end
    local main = widest_behind_first(widths)
    local items = pandoc.List()
    for _, row in ipairs(simple.rows) do items:insert(as_item(row, simple.headers, main)) end
    return pandoc.DefinitionList(items)
end

-- Sections -----------------------------------------------------------------------------------------------------------

-- The blocks under each heading of the second level; those before the first one are the description's.
local function sections_of(blocks)
    local synopsis = pandoc.List()
    local sections = pandoc.List({{name = "Description", blocks = pandoc.List()}})
    for _, block in ipairs(blocks) do
        if block.t == "CodeBlock" and block.classes:includes("synopsis") then
            synopsis:insert(as_calls(block))
        elseif block.t == "Header" and block.level == 2 then
            sections:insert({name = stringify(block), blocks = pandoc.List()})
        elseif block.t ~= "Header" then
            sections[#sections].blocks:insert(block)
        elseif block.level > 2 then
            sections[#sections].blocks:insert(pandoc.Header(block.level - 1, block.content))
        end
    end
    return synopsis, sections
end

-- The others, and behind them those that stand at the end.
local function in_order(sections)
    local ordered = sections:filter(function(section) return not pandoc.List.includes(last_sections, section.name) end)
    for _, name in ipairs(last_sections) do
        ordered:extend(sections:filter(function(section) return section.name == name end))
    end
    return ordered
end

local function joined(names, as_text)
    local text = pandoc.List()
    for i, name in ipairs(names) do
        if i > 1 then text:extend({pandoc.Str(","), pandoc.Space()}) end
        text:extend(as_text(linked[name]))
    end
    return text
end

-- The pages, in the order of their sections, and the documents.
local function see_also()
    local manual, documents = pandoc.List(), pandoc.List()
    for name, page in pairs(linked) do (page.section and manual or documents):insert(name) end
    local function key(name) return (linked[name].section or "") .. name end
    local function before(one, other) return key(one) < key(other) end
    manual:sort(before)
    documents:sort(before)
    local blocks = pandoc.List({pandoc.Para(joined(manual, reference))})
    if #documents > 0 then
        local text = pandoc.List({pandoc.Str("In"), pandoc.Space(), pandoc.Emph("share/doc/zelmora/docs"), pandoc.Str(":"), pandoc.Space()})
        text:extend(joined(documents, function(page) return whole(page.name) end))
        blocks:insert(pandoc.Para(text))
    end
    return blocks
end

local function has_text(block)
    return (block.t ~= "Para" and block.t ~= "Plain") or #block.content > 0
end

local function page_of(document, line)
    local page = pandoc.List()
    local function add(name, blocks)
        page:insert(pandoc.Header(1, pandoc.Str(upper(name))))
        page:extend(blocks)
    end
    add("Name", {pandoc.Para({pandoc.Str(title .. " - " .. line)})})
    local synopsis, sections = sections_of(document.blocks)
    if #synopsis > 0 then add("Synopsis", synopsis) end
    for _, section in ipairs(in_order(sections)) do
        add(section.name, section.blocks:filter(has_text))
    end
    if next(linked) then add("See also", see_also()) end
    return page
end

local function read_pages(list)
    for file, name, section in list:gmatch("(%S+) (%S+) (%d);?") do
        pages[file] = {name = name, section = section}
    end
end

function Pandoc(document)
    local meta = document.meta
    title = stringify(meta.title)
    read_pages(stringify(meta.pages))
    document = document:walk(inlines):walk({Inlines = before_words}):walk({Table = without_width})
    local page = page_of(document, stringify(meta.line))
    return pandoc.Pandoc(page, meta):walk({CodeBlock = as_display})
end
