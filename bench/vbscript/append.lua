local function build(pieces)
    local text = {}
    for i = 1, pieces do
        text[#text + 1] = "line " .. i .. "\r\n"
    end
    return table.concat(text)
end

local total = 0
for _ = 1, 30 do
    total = total + #build(20000)
end
print(total)
