local function split(text, separator)
    local words, from = {}, 1
    while true do
        local place = text:find(separator, from, true)
        if not place then
            words[#words + 1] = text:sub(from)
            return words
        end
        words[#words + 1] = text:sub(from, place - 1)
        from = place + #separator
    end
end

local line = "The quick brown fox jumps over the lazy dog; "
local pieces = {}
for i = 1, 4600 do
    pieces[i] = line
end
local text = table.concat(pieces)

local found, letters = 0, 0
for _ = 1, 20 do
    local place = text:find("lazy", 1, true)
    while place do
        found = found + 1
        place = text:find("lazy", place + 1, true)
    end
    local words = split(text, " ")
    for i = 1, #words do
        letters = letters + #words[i]
    end
end
print(#text .. " " .. found .. " " .. letters)
